#pragma once

#include "platform/UserDefaults.h"
#include "settings/Setting.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

/// Whether the bar is in use or the system Dock is left to itself. In the order in which the table
/// of settings lists them.
enum class BarMode { vantrel, systemDock };

/// The mode as it is stored.
std::string_view rawValue(BarMode mode);

/// The table of settings over what is stored. Each accessor reads its key when it is asked, so that
/// what another process wrote is seen. Main thread only.
class BarSettings {
  public:
    /// Records that other subsystems keep as JSON.
    enum class Record { shelf, stacks, folderStacks };

    static constexpr double defaultBarHeight = 72;

    /// `hasIslands` as `settingsTable` takes it.
    BarSettings(UserDefaults& defaults, bool hasIslands)
        : table_(settingsTable(hasIslands))
        , defaults_(defaults) {}

    const std::vector<Setting>& table() const { return table_; }
    /// The row of a key that is in the table.
    const Setting& row(std::string_view key) const;

    /// What is stored, as far as it is acceptable; else what holds without it.
    SettingValue value(const Setting& setting) const;
    /// With no value the key is removed.
    void set(const Setting& setting, const SettingValue& value);

    BarMode mode() const;
    void setMode(BarMode mode);

    /// Points; absent while the user has chosen none.
    std::optional<double> barHeight() const { return number("barHeight"); }

    /// Whether hovering an app with a single window shows a preview of it.
    bool previewsSingleWindows() const;

    /// The Dock's icon size that was last fitted under the bar, as the Dock's own fraction.
    std::optional<float> syncedTileSize() const;
    void setSyncedTileSize(float fraction);

    /// Absent when nothing is stored or what is stored does not parse.
    std::optional<nlohmann::json> record(Record record) const;
    void setRecord(Record record, const nlohmann::json& content);

  private:
    std::optional<double> number(std::string_view key) const;

    const std::vector<Setting>& table_;
    UserDefaults& defaults_;
};

} // namespace larkspan
