#include "adapters/x11/applications/X11AppNotices.h"

#include <algorithm>
#include <map>
#include <string>
#include <utility>

namespace larkspan::x11 {

void X11AppNotices::update() {
    auto now = read();
    if (now == notices_) return;
    notices_ = std::move(now);
    changed_.emit();
}

std::vector<AppNotice> X11AppNotices::read() const {
    std::map<std::string, AppNotice> byId;
    for (const auto* entry : table_.applications()) {
        const bool wantsAttention = std::ranges::any_of(
            entry->windows, [](const ClientWindowRef& window) { return window->demandsAttention; });
        if (wantsAttention && entry->bundleIdentifier)
            byId[*entry->bundleIdentifier].wantsAttention = true;
    }
    for (const auto& [id, launcher] : launchers_.entries()) {
        // The file manager has another identifier here.
        const auto installed = installed_.find(id);
        auto& notice = byId[installed ? installed_.identifierOf(*installed) : id];
        notice.wantsAttention = notice.wantsAttention || launcher.isUrgent;
        if (launcher.showsCount && launcher.count > 0)
            notice.badge = std::to_string(launcher.count);
    }
    std::vector<AppNotice> notices;
    for (auto& [id, notice] : byId) {
        notice.bundleIdentifier = id;
        if (notice.wantsAttention || !notice.badge.empty()) notices.push_back(std::move(notice));
    }
    return notices;
}

} // namespace larkspan::x11
