#pragma once

#include "adapters/qt/WholeFile.h"
#include "platform/UserDefaults.h"

#include <functional>
#include <string>

namespace larkspan::qt {

/// The user's settings in one readable JSON file. Every change is on disk before the call returns:
/// a kill at any moment leaves the old or the new file. A malformed file is renamed to
/// `NAME.damaged` and counts as absent; if the file cannot be read or written, the settings are
/// kept in memory.
class DefaultsFile : public UserDefaults {
  public:
    /// `report` is called with one line, once, about a file that was renamed or cannot be used.
    DefaultsFile(std::string path, std::function<void(const std::string&)> report);

    std::optional<PropertyValue> value(std::string_view key) const override;
    void set(std::string_view key, PropertyValue value) override;
    void remove(std::string_view key) override;
    bool synchronize() override;

  private:
    void load();
    void followOutsideChange();
    void store();
    void reportOnce(const std::string& problem);

    WholeFile file_;
    std::function<void(const std::string&)> report_;
    PropertyValue::Dictionary values_;
    /// The state of the file when `values_` was last read from it or written to it.
    std::string stamp_;
    bool isUnsaved_ = false;
    /// Whether there is a file that cannot be read, which must not be replaced.
    bool isBlocked_ = false;
    bool hasReported_ = false;
};

} // namespace larkspan::qt
