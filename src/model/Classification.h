#pragma once

#include "platform/Identifiers.h"

namespace larkspan {

/// The section of a running app's tile.
enum class Section { windowApps, background };

/// What determines the section of one running app.
struct SectionFacts {
    ProcessId pid = 0;
    bool isHidden = false;
    bool hasWindows = false;
    /// Whether its tile was among the window apps until now.
    bool wasWindowApp = false;
    bool wasBackgroundApp = false;
    /// Tiles do not move: the pointer is on a bar, or the app's windows are flying or about to.
    bool isHeld = false;
    /// Whether the tile may move although it is held.
    bool mayRegroup = false;
};

/// A held tile keeps its section; any other is among the window apps if and only if its app is
/// hidden or has windows.
Section sectionOf(const SectionFacts& facts);

} // namespace larkspan
