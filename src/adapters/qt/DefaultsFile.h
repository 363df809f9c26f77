#pragma once

#include "adapters/qt/WholeFile.h"
#include "platform/UserDefaults.h"

#include <functional>
#include <string>

namespace larkspan::qt {

/// The user's settings in one JSON file that a person can read and edit. Every change is on disk
/// before the call returns: a kill at any moment leaves the old or the new file. A file that cannot
/// be understood is set aside as `NAME.damaged` and counts as absent; where the file cannot be read
/// or written, the settings are kept in memory.
class DefaultsFile : public UserDefaults {
  public:
    /// `report` takes one line about a file that was set aside or cannot be used, once for each.
    DefaultsFile(std::string path, std::function<void(const std::string&)> report);

    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;

  private:
    void load();
    void followOutsideChange();
    void store();
    void sayOnce(const std::string& trouble);

    WholeFile file_;
    std::function<void(const std::string&)> report_;
    PropertyValue::Dictionary values_;
    /// The state of the file that `values_` was last read from or written to.
    std::string stamp_;
    bool isUnsaved_ = false;
    /// There is a file that cannot be read, which must not be replaced unseen.
    bool isBlocked_ = false;
    bool saidTrouble_ = false;
};

} // namespace larkspan::qt
