#pragma once

#include "model/DockStore.h"
#include "model/ItemActions.h"
#include "platform/Accessibility.h"
#include "platform/Menu.h"
#include "platform/Scheduler.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace larkspan {

/// The menu of a tile, built each time it opens; it must not outlive this object. Main thread only.
class ItemMenu {
  public:
    using Show = std::function<void(Menu)>;

    ItemMenu(DockStore& store, ItemActions& actions, Scheduler& scheduler,
             Accessibility& accessibility);

    /// Calls `show` with the menu within a tenth of a second, and again when it changes, until the
    /// handle ends. The app is asked for its windows on a queue: a hung one blocks nothing, and
    /// when it responds again, the menu changes.
    Handle open(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame, Show show);
    /// Returns the menu at once, after waiting for the app up to the messaging time-out.
    Menu menu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const;

  private:
    /// Its windows as Accessibility lists them; absent if the app did not respond.
    using Listing = std::optional<std::vector<AppWindow>>;
    struct Tile {
        DockItem item;
        std::optional<DisplayGroup> group;
        Rect frame;

        bool isRunning() const { return item.app && item.app->pid >= 1; }
        const DisplayGroup* groupOrNull() const { return group ? &*group : nullptr; }
    };
    struct Opened;

    void ask(const std::shared_ptr<Opened>& opened);
    void answered(const std::shared_ptr<Opened>& opened, Listing listing);
    Menu runningMenu(const Tile& tile, Listing listing, bool isHung) const;
    Menu notRunningMenu(const Tile& tile) const;
    void addWindows(Menu& menu, const Tile& tile, Listing listing) const;
    void addOptions(Menu& menu, const Tile& tile) const;
    MenuItem keeping(const Tile& tile) const;
    MenuItem hiding(const Tile& tile) const;
    MenuItem quitting(ProcessId pid, bool isHung) const;

    DockStore& store_;
    ItemActions& actions_;
    Scheduler& scheduler_;
    Accessibility& accessibility_;
};

} // namespace larkspan
