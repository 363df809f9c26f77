#pragma once

#include "platform/Geometry.h"
#include "spaces/FullScreenState.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// What covers a display, as far as its bar is concerned.
enum class Cover {
    none,
    /// A full-screen Space.
    space,
    /// A window as large as the screen.
    window,
};

std::string_view nameOf(Cover cover);

/// What covers the screen with that frame.
Cover coverOf(const Rect& screenFrame, const FullScreenState& fullScreen);

/// A bar shows exactly when bars are wanted and nothing hides this one, or the pointer has revealed
/// it.
constexpr bool isBarShown(bool areBarsWanted, Cover cover, bool isRevealed) {
    return areBarsWanted && (cover == Cover::none || isRevealed);
}

/// Whether two frames are of the same screen. Heights are left out: a menu bar that hides changes
/// them.
bool isSameScreen(const Rect& one, const Rect& other);

/// The frames as the log writes them, without the brackets around them.
std::string describeFrames(const std::vector<Rect>& frames);

} // namespace larkspan
