#include "model/ItemMenu.h"

#include "spaces/WindowPresence.h"

#include <utility>

namespace larkspan {

namespace {

/// How long a menu waits for the app before it is shown without its windows, in seconds.
constexpr double patience = 0.1;
/// The seconds before an app that did not respond is asked again.
constexpr double secondsBetweenQuestions = 0.5;

MenuItem action(std::string title, std::function<void()> chosen) {
    MenuItem item{.title = std::move(title)};
    item.action = std::move(chosen);
    return item;
}

MenuItem withOption(MenuItem item, MenuItem alternate) {
    item.alternate = std::make_shared<const MenuItem>(std::move(alternate));
    return item;
}

/// A separator before what comes next, but never at the top.
void separate(Menu& menu) {
    if (!menu.empty() && menu.back().kind != MenuItem::Kind::separator)
        menu.push_back(MenuItem::separator());
}

} // namespace

/// A menu while it is open.
struct ItemMenu::Opened {
    Tile tile;
    Show show;
    /// Whether the app responded to the last request; absent before the first one.
    std::optional<bool> answers;
    Handle patience;
    Handle nextQuestion;
};

ItemMenu::ItemMenu(DockStore& store, ItemActions& actions, Scheduler& scheduler,
                   Accessibility& accessibility)
    : store_(store)
    , actions_(actions)
    , scheduler_(scheduler)
    , accessibility_(accessibility) {}

Menu ItemMenu::menu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const {
    const Tile tile{item, group ? std::optional(*group) : std::nullopt, tileFrame};
    if (!tile.isRunning()) return notRunningMenu(tile);
    auto listing = WindowPresence::accessibilityWindows(accessibility_, item.app->pid);
    const bool isHung = !listing;
    return runningMenu(tile, std::move(listing), isHung);
}

Handle ItemMenu::open(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame,
                      Show show) {
    Tile tile{item, group ? std::optional(*group) : std::nullopt, tileFrame};
    if (!tile.isRunning()) {
        show(notRunningMenu(tile));
        return {};
    }
    auto opened = std::make_shared<Opened>();
    opened->tile = std::move(tile);
    opened->show = std::move(show);
    opened->patience = scheduler_.after(patience, [this, weak = std::weak_ptr(opened)] {
        const auto stillOpen = weak.lock();
        if (stillOpen) stillOpen->show(runningMenu(stillOpen->tile, std::nullopt, false));
    });
    ask(opened);
    return Handle([opened]() mutable { opened.reset(); });
}

void ItemMenu::ask(const std::shared_ptr<Opened>& opened) {
    scheduler_.queue("menus").post(
        [this, pid = opened->tile.item.app->pid, weak = std::weak_ptr(opened)] {
            if (weak.expired()) return;
            scheduler_.post(
                [this, weak, listing = WindowPresence::accessibilityWindows(accessibility_, pid)] {
                    if (const auto stillOpen = weak.lock()) answered(stillOpen, listing);
                });
        });
}

void ItemMenu::answered(const std::shared_ptr<Opened>& opened, Listing listing) {
    opened->patience.reset();
    const bool answers = listing.has_value();
    if (!answers)
        opened->nextQuestion =
            scheduler_.after(secondsBetweenQuestions, [this, weak = std::weak_ptr(opened)] {
                if (const auto stillOpen = weak.lock()) ask(stillOpen);
            });
    if (std::exchange(opened->answers, answers) == answers) return;
    opened->show(runningMenu(opened->tile, std::move(listing), !answers));
}

Menu ItemMenu::runningMenu(const Tile& tile, Listing listing, bool isHung) const {
    Menu menu;
    const auto pid = tile.item.app->pid;
    const auto* app = store_.runningApplication(pid);
    // An app that is still launching cannot respond yet.
    isHung = isHung && app && app->isFinishedLaunching;
    if (isHung) menu.push_back({.title = "Application Not Responding", .isEnabled = false});
    addWindows(menu, tile, std::move(listing));
    separate(menu);
    addOptions(menu, tile);
    separate(menu);
    menu.push_back(
        action("Show All Windows", [this, item = tile.item] { actions_.showAllWindows(item); }));
    menu.push_back(hiding(tile));
    // The Finder cannot quit.
    if (tile.item.id != finderIdentifier) menu.push_back(quitting(pid, isHung));
    return menu;
}

Menu ItemMenu::notRunningMenu(const Tile& tile) const {
    Menu menu;
    addOptions(menu, tile);
    separate(menu);
    if (tile.item.url)
        menu.push_back(action("Open", [this, tile] { actions_.open(tile.item, tile.frame); }));
    return menu;
}

void ItemMenu::addWindows(Menu& menu, const Tile& tile, Listing listing) const {
    const auto windows =
        store_.windowsOf(tile.item.app->pid, tile.groupOrNull(), std::move(listing));
    const bool isFront = store_.frontmostPID().get() == tile.item.app->pid;
    bool hasFront = false;
    for (const auto& window : windows) {
        auto line = action(window.title, [this, window] { actions_.bringForward(window); });
        if (line.title.empty()) line.title = "Untitled";
        if (window.isMinimized) {
            line.mark = MenuItem::Mark::diamond;
        } else if (isFront && !window.isOnOtherSpace && !std::exchange(hasFront, true)) {
            line.mark = MenuItem::Mark::check;
        }
        menu.push_back(std::move(line));
    }
}

void ItemMenu::addOptions(Menu& menu, const Tile& tile) const {
    const auto& item = tile.item;
    MenuItem options{.kind = MenuItem::Kind::submenu, .title = "Options"};
    // Finder is always pinned, and only an app that can be found again can be pinned.
    const bool canBeKept = !item.app || (item.app->bundleIdentifier == item.id && item.url);
    if (item.id != finderIdentifier && canBeKept) options.submenu.push_back(keeping(tile));
    const auto opens = actions_.opensAtLogin(item);
    if (item.id != finderIdentifier && opens) {
        auto line = action("Open at Login",
                           [this, item, next = !*opens] { actions_.setOpensAtLogin(item, next); });
        if (*opens) line.mark = MenuItem::Mark::check;
        options.submenu.push_back(std::move(line));
    }
    const auto finder = store_.makePinnedItem(finderIdentifier);
    if (finder && item.url)
        options.submenu.push_back(
            action("Show in " + finder->name, [this, item] { actions_.showInFinder(item); }));
    if (!options.submenu.empty()) menu.push_back(std::move(options));
}

MenuItem ItemMenu::keeping(const Tile& tile) const {
    const auto& id = tile.item.id;
    if (tile.item.isPinned) return action("Remove from Dock", [this, id] { actions_.remove(id); });
    return action("Keep in Dock", [this, id] { actions_.keep(id); });
}

MenuItem ItemMenu::hiding(const Tile& tile) const {
    const auto& item = tile.item;
    const auto pid = item.app->pid;
    const auto* app = store_.runningApplication(pid);
    const bool isHidden = app && app->isHidden;
    const auto show = [this, item] { actions_.show(item); };
    const auto hide = [this, pid, frame = tile.frame] { store_.animator().hide(pid, frame); };
    const auto hideOthers = [this, item] {
        actions_.show(item);
        actions_.hideOthers(item.app->pid);
    };
    return withOption(isHidden ? action("Show", show) : action("Hide", hide),
                      action("Hide Others", hideOthers));
}

MenuItem ItemMenu::quitting(ProcessId pid, bool isHung) const {
    auto force = action("Force Quit", [this, pid] { actions_.forceQuit(pid); });
    if (isHung) return force;
    return withOption(action("Quit", [this, pid] { actions_.quit(pid); }), std::move(force));
}

} // namespace larkspan
