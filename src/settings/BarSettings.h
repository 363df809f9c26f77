#pragma once

#include "platform/UserDefaults.h"
#include "settings/BarLook.h"

#include <nlohmann/json_fwd.hpp>
#include <optional>

namespace larkspan {

/// The settings that no bar watches. Each accessor reads its key anew, so what another process
/// wrote is seen. Main thread only.
class BarSettings {
  public:
    /// Records that other subsystems keep as JSON.
    enum class Record { shelf, stacks, folderStacks };

    static constexpr double defaultBarHeight = 72;

    explicit BarSettings(UserDefaults& defaults)
        : defaults_(defaults) {}

    BarMode mode() const;
    void setMode(BarMode mode);

    /// Points; absent while the user has chosen none.
    std::optional<double> barHeight() const;
    void setBarHeight(std::optional<double> height);

    /// Whether hovering an app with a single window shows a preview of it.
    bool previewsSingleWindows() const;
    void setPreviewsSingleWindows(bool shows);

    /// The Dock's icon size that was last fitted under the bar, as the Dock's own fraction.
    std::optional<float> syncedTileSize() const;
    void setSyncedTileSize(float fraction);

    /// Absent when nothing is stored or what is stored does not parse.
    std::optional<nlohmann::json> record(Record record) const;
    void setRecord(Record record, const nlohmann::json& content);

  private:
    UserDefaults& defaults_;
};

} // namespace larkspan
