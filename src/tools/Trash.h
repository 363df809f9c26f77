#pragma once

#include "platform/Menu.h"
#include "platform/Shell.h"

namespace larkspan {

/// Whether the Trash shows its empty picture. A folder that cannot be read counts as empty. Main
/// thread only.
bool isTrashEmpty(const TrashFolder& trash);

/// The menu above the Trash tile. `trash` must outlive it.
Menu trashMenu(TrashFolder& trash);

} // namespace larkspan
