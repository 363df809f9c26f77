#pragma once

#include "platform/CoreDock.h"
#include "platform/UserDefaults.h"

#include <cstdint>
#include <optional>
#include <string_view>

namespace larkspan {

/// The Dock's own settings, as far as the bar changes them. Main thread only.
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

    /// The Dock as it is now; absent when this system lacks one of the functions that tell.
    static std::optional<DockProfile> current(const CoreDock& dock);

    /// The user's own settings, saved before the first change; absent when none are saved or what
    /// is saved does not decode.
    static std::optional<DockProfile> saved(const UserDefaults& defaults);
    /// False when it could not be stored for certain; then nothing is saved, and a Dock changed now
    /// could not be given back after a kill.
    bool save(UserDefaults& defaults) const;
    static void forgetSaved(UserDefaults& defaults);

    /// The same Dock as the bar needs it: in sight at the bottom, so that it holds the strip.
    DockProfile underBar() const;

    /// Brings the Dock to these settings, but to `fraction` as its icon size. What is as it should
    /// be is not touched.
    void apply(CoreDock& dock, float fraction) const;
};

/// Whether the Dock's icons can be resized on this system at all.
bool canResize(const CoreDock& dock);
/// Why they cannot, as a sentence for the user; absent when they can.
std::optional<std::string_view> whyNoResize(const CoreDock& dock);

/// Sets the icon size. The Dock takes a size for certain only when told twice.
void setTileSizeTwice(CoreDock& dock, float fraction);

} // namespace larkspan
