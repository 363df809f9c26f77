#pragma once

#include "platform/UserDefaults.h"
#include "settings/Setting.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

/// Whether the bar is in use, or the system Dock, which is then not changed. In the order of the
/// table of settings.
enum class BarMode { vantrel, systemDock };

/// The mode as it is stored.
std::string_view rawValue(BarMode mode);

/// Reads and writes the stored settings by the table. Each accessor reads its key when it is
/// called, so that it sees what another process has written. Main thread only.
class BarSettings {
  public:
    /// Records of other subsystems, stored as JSON.
    enum class Record { shelf, stacks, folderStacks };

    static constexpr double defaultBarHeight = 72;

    /// `hasIslands` as in `settingsTable`.
    BarSettings(UserDefaults& defaults, bool hasIslands)
        : table_(settingsTable(hasIslands))
        , defaults_(defaults) {}

    const std::vector<Setting>& table() const { return table_; }
    /// The row of a key, which must be in the table.
    const Setting& row(std::string_view key) const;

    /// The stored value if it is acceptable; else the default.
    SettingValue value(const Setting& setting) const;
    /// Without a value, the key is removed.
    void set(const Setting& setting, const SettingValue& value);

    BarMode mode() const;
    void setMode(BarMode mode);

    /// Points; absent if the user has not chosen a height.
    std::optional<double> barHeight() const { return number("barHeight"); }

    /// Whether hovering an app with a single window shows a preview of it.
    bool previewsSingleWindows() const;

    /// The Dock's icon size that was last fitted under the bar, as the Dock's own fraction.
    std::optional<float> syncedTileSize() const;
    void setSyncedTileSize(float fraction);

    /// Absent if nothing is stored or it cannot be parsed.
    std::optional<nlohmann::json> record(Record record) const;
    void setRecord(Record record, const nlohmann::json& content);

  private:
    std::optional<double> number(std::string_view key) const;

    const std::vector<Setting>& table_;
    UserDefaults& defaults_;
};

} // namespace larkspan
