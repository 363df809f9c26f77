#include "tools/trash/TrashWatch.h"

#include <utility>

namespace larkspan {
namespace {

/// Seconds.
constexpr double pollInterval = 2;

} // namespace

bool isTrashEmpty(const TrashFolder& trash) {
    const auto count = trash.entryCount().value_or(0);
    // The file with the folder's view settings does not count.
    return count <= (trash.holdsDesktopServicesFile() ? 1U : 0U);
}

Menu trashMenu(TrashFolder& trash) {
    MenuItem open{.title = "Open"};
    open.action = [&trash] { trash.open(); };
    return {open};
}

TrashWatch::TrashWatch(Scheduler& scheduler, TrashFolder& trash,
                       std::function<void(bool isEmpty)> tell) {
    const auto look = [&trash, tell = std::move(tell)] { tell(isTrashEmpty(trash)); };
    look();
    changes_ =
        trash.announcesChanges() ? trash.subscribe(look) : scheduler.every(pollInterval, look);
}

} // namespace larkspan
