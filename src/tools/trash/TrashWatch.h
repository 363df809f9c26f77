#pragma once

#include "platform/Handle.h"
#include "platform/Menu.h"
#include "platform/Scheduler.h"
#include "platform/TrashFolder.h"

#include <functional>

namespace larkspan {

/// Whether the Trash shows its empty icon. A folder that cannot be read counts as empty. Main
/// thread only.
bool isTrashEmpty(const TrashFolder& trash);

/// The menu of the Trash tile. `trash` must outlive it.
Menu trashMenu(TrashFolder& trash);

/// Reports whether the Trash is empty: at once, and whenever that may have changed. A folder that
/// does not announce changes is polled every two seconds. Main thread only.
class TrashWatch {
  public:
    TrashWatch(Scheduler& scheduler, TrashFolder& trash, std::function<void(bool isEmpty)> tell);

  private:
    Handle changes_;
};

} // namespace larkspan
