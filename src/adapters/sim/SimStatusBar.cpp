#include "adapters/sim/SimStatusBar.h"

#include <utility>

namespace larkspan::sim {

Handle SimStatusBar::show(StatusItem item) {
    items_->push_back(std::move(item));
    return Handle([weak = std::weak_ptr(items_), shown = std::prev(items_->end())] {
        if (const auto items = weak.lock()) items->erase(shown);
    });
}

bool SimStatusBar::choose(std::string_view title) const {
    for (const StatusItem& item : *items_) {
        for (const MenuItem& line : item.menu) {
            if (line.title != title || !line.isEnabled || !line.action) continue;
            // A copy: the action may remove the item.
            const auto action = line.action;
            action();
            return true;
        }
    }
    return false;
}

} // namespace larkspan::sim
