#include "dock/DockBand.h"

#include "dock/DockProfile.h"

namespace larkspan {

std::vector<DockBand> DockBand::bands(const Screens& screens) {
    std::vector<DockBand> bands;
    for (const auto& screen : screens.screens()) {
        const auto& frame = screen.frame;
        const double height = screen.visibleFrame.minY() - frame.minY();
        if (height > 0) bands.push_back({screen, {frame.x, frame.y, frame.width, height}});
    }
    return bands;
}

std::optional<std::string_view> DockBand::whyNoBand(const CoreDock& dock) {
    const auto profile = DockProfile::current(dock);
    if (!profile) return "The Dock holds no space at the bottom of any screen.";
    if (profile->autoHide)
        return "The Dock is set to hide itself, so it holds no space. "
               "Turn off \"Automatically hide and show the Dock\".";
    if (profile->orientation != DockProfile::bottom)
        return "The Dock is on the side of the screen. "
               "Move it to the bottom so it holds space under the bar.";
    return std::nullopt;
}

} // namespace larkspan
