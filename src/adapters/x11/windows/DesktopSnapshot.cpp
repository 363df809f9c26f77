#include "adapters/x11/windows/DesktopSnapshot.h"

namespace larkspan::x11 {

void DesktopSnapshot::makeIndex() const {
    std::call_once(indexMade_, [this] {
        byNumber_.reserve(windows.size());
        for (const auto& window : windows) {
            byNumber_.emplace(window->id, window);
            byOwner_[window->owner].push_back(window);
        }
    });
}

ClientWindowRef DesktopSnapshot::find(WindowId window) const {
    makeIndex();
    const auto found = byNumber_.find(window);
    return found == byNumber_.end() ? nullptr : found->second;
}

std::vector<ClientWindowRef> DesktopSnapshot::windowsOf(ProcessId owner) const {
    makeIndex();
    const auto found = byOwner_.find(owner);
    return found == byOwner_.end() ? std::vector<ClientWindowRef>() : found->second;
}

DisplayId DesktopSnapshot::displayOf(const ClientWindow& window) const {
    DisplayId best = screens.empty() ? 0 : screens.front().display;
    double largest = 0;
    for (const auto& screen : screens) {
        const double area = intersection(window.bounds, screen.bounds).area();
        if (area <= largest) continue;
        largest = area;
        best = screen.display;
    }
    return best;
}

} // namespace larkspan::x11
