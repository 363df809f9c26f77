#include "tools/Trash.h"

namespace larkspan {

bool isTrashEmpty(const TrashFolder& trash) {
    const auto count = trash.entryCount().value_or(0);
    // The desktop's own view settings are no refuse of the user's.
    return count <= (trash.holdsDesktopServicesFile() ? 1U : 0U);
}

Menu trashMenu(TrashFolder& trash) {
    MenuItem open{.title = "Open"};
    open.action = [&trash] { trash.open(); };
    return {open};
}

} // namespace larkspan
