#pragma once

#include "platform/CoreDock.h"
#include "platform/UserDefaults.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace larkspan {

/// The Dock's settings that the bar changes. Main thread only.
struct DockProfile {
    /// The code of the bottom edge.
    static constexpr std::uint32_t bottom = 2;

    /// The Dock's fraction: 0 is 16 pixels, 1 is 128.
    float tileSize = 0;
    bool autoHide = false;
    std::uint32_t orientation = bottom;
    std::uint32_t pinning = 2;
    bool magnification = false;

    bool operator==(const DockProfile&) const = default;

    /// The current settings of the Dock; absent if this system lacks one of the functions that read
    /// them.
    static std::optional<DockProfile> current(const CoreDock& dock);

    /// The user's own settings, saved before the first change; absent if none are saved or they are
    /// malformed.
    static std::optional<DockProfile> saved(const UserDefaults& defaults);
    /// Returns false if it could not be stored; then nothing is saved, and a Dock changed now could
    /// not be restored after a kill.
    bool save(UserDefaults& defaults) const;
    static void forgetSaved(UserDefaults& defaults);

    /// The same settings as the bar needs them: visible at the bottom, so that the Dock reserves
    /// the strip.
    DockProfile underBar() const;

    /// Applies these settings to the Dock, but with `fraction` as its icon size. Settings that are
    /// already right are not touched.
    void apply(CoreDock& dock, float fraction) const;
};

/// Whether the Dock's icons can be resized on this system at all.
bool canResize(const CoreDock& dock);
/// Why they cannot, as a sentence for the user; absent if they can.
std::optional<std::string_view> whyNoResize(const CoreDock& dock);

/// Sets the icon size. The Dock applies a size reliably only if it is set twice.
void setTileSizeTwice(CoreDock& dock, float fraction);

} // namespace larkspan
