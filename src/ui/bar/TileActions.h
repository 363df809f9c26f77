#pragma once

#include "model/IconClick.h"
#include "model/ItemMenu.h"
#include "model/WindowRefresh.h"
#include "platform/Geometry.h"
#include "platform/Menu.h"
#include "platform/TrashFolder.h"
#include "ui/bar/TileRow.h"

namespace larkspan::ui {

/// Hands what the user does with a tile to the part of the system that knows what it means. Frames
/// are in screen coordinates (y upwards). Main thread only.
class TileActions {
  public:
    TileActions(const DockStore& store, IconClick& click, ItemMenu& menu, WindowRefresh& refresh,
                TrashFolder& trash);

    void click(const TileRow& row, const Rect& frame, ClickModifiers modifiers = {});
    /// As `ItemMenu::open`.
    Handle openMenu(const TileRow& row, const Rect& frame, ItemMenu::Show show);
    void setPointerOnBar(bool onBar, bool isMenuOpen);

  private:
    const DisplayGroup* group(const TileRow& row) const;

    const DockStore& store_;
    IconClick& click_;
    ItemMenu& menu_;
    WindowRefresh& refresh_;
    TrashFolder& trash_;
};

} // namespace larkspan::ui
