#pragma once

#include "platform/UserDefaults.h"

#include <functional>
#include <map>
#include <string>

namespace larkspan::qt {

/// The user's settings in one JSON file that a person can read and edit. Every change is on disk
/// before the call returns: a kill at any moment leaves the old or the new file. A file that cannot
/// be understood is set aside as `NAME.damaged` and counts as absent; a folder that cannot be
/// written leaves the settings in memory.
class DefaultsFile : public UserDefaults {
  public:
    /// `report` takes one line about a file that was set aside or cannot be written.
    DefaultsFile(std::string path, std::function<void(const std::string&)> report);

    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;

  private:
    void load();
    void loadIfChangedOutside();
    void store();

    std::string path_;
    std::function<void(const std::string&)> report_;
    PropertyValue::Dictionary values_;
    /// Which state of the file `values_` was last read from or written to.
    std::string fileStamp_;
    bool isUnsaved_ = false;
    bool saidUnwritable_ = false;
};

} // namespace larkspan::qt
