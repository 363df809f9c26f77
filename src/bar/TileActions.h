#pragma once

#include "bar/BarTile.h"
#include "model/IconClick.h"
#include "model/ItemMenu.h"
#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Menu.h"

#include <functional>

namespace larkspan {

/// Does what the user asks of a tile, whether by a click, a key, a menu or a command: hands it to
/// the part of the system that knows what it means for this kind of tile. `frame` is where the tile
/// stands, in screen coordinates; empty where it cannot be seen. Main thread only.
class TileActions {
  public:
    /// What the Trash does; that is not part of the bar.
    struct Trash {
        std::function<void()> open;
        std::function<Menu()> menu;
    };
    using Show = ItemMenu::Show;

    TileActions(const DockStore& store, IconClick& click, ItemMenu& menu, Trash trash);

    void click(const BarTile& tile, const Rect& frame, ClickModifiers modifiers = {});
    /// Calls `show` with the tile's menu, as `ItemMenu::open` does.
    Handle openMenu(const BarTile& tile, const Rect& frame, Show show);
    /// The menu at once; an app is waited for up to the messaging time-out.
    Menu menu(const BarTile& tile, const Rect& frame) const;

  private:
    const DisplayGroup* group(const AppTile& tile) const;

    const DockStore& store_;
    IconClick& click_;
    ItemMenu& menu_;
    Trash trash_;
};

} // namespace larkspan
