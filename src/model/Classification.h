#pragma once

#include "platform/Identifiers.h"

namespace larkspan {

/// Where a running app's tile stands.
enum class Section { windowApps, background };

/// What the section of one running app depends on.
struct SectionFacts {
    ProcessId pid = 0;
    bool isHidden = false;
    bool hasWindows = false;
    /// Its tile stood among the window apps, or among the background apps, until now.
    bool wasWindowApp = false;
    bool wasBackgroundApp = false;
    /// Tiles keep still: the pointer is on a bar, or the app's windows are flying or about to.
    bool isHeld = false;
    /// The tile may move although it is held.
    bool mayRegroup = false;
};

/// A held tile keeps its section; any other stands among the window apps exactly when its app is
/// hidden or has windows.
Section sectionOf(const SectionFacts& facts);

} // namespace larkspan
