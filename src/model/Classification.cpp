#include "model/Classification.h"

namespace larkspan {

Section sectionOf(const SectionFacts& facts) {
    const bool wasShown = facts.wasWindowApp || facts.wasBackgroundApp;
    if (wasShown && facts.isHeld && !facts.mayRegroup)
        return facts.wasWindowApp ? Section::windowApps : Section::background;
    if (facts.pid < 1) return Section::background;
    return facts.isHidden || facts.hasWindows ? Section::windowApps : Section::background;
}

} // namespace larkspan
