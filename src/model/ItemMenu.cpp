#include "model/ItemMenu.h"

#include "spaces/WindowPresence.h"

#include <utility>

namespace larkspan {

namespace {

MenuItem action(std::string title, std::function<void()> chosen) {
    MenuItem item{.title = std::move(title)};
    item.action = std::move(chosen);
    return item;
}

/// A line between what is there and what comes next, never at the top.
void separate(Menu& menu) {
    if (!menu.empty() && menu.back().kind != MenuItem::Kind::separator)
        menu.push_back(MenuItem::separator());
}

} // namespace

ItemMenu::ItemMenu(DockStore& store, ApplicationControl& applications, Accessibility& accessibility)
    : store_(store)
    , applications_(applications)
    , accessibility_(accessibility) {}

Menu ItemMenu::menu(const DockItem& item, const DisplayGroup* group, const Rect& tileFrame) const {
    return item.app && item.app->pid >= 1 ? runningMenu(item, group, tileFrame)
                                          : notRunningMenu(item);
}

Menu ItemMenu::runningMenu(const DockItem& item, const DisplayGroup* group,
                           const Rect& tileFrame) const {
    Menu menu;
    addWindows(menu, item.app->pid, group);
    separate(menu);
    addKeeping(menu, item);
    separate(menu);
    addHiding(menu, item, tileFrame);
    addQuitting(menu, item);
    return menu;
}

Menu ItemMenu::notRunningMenu(const DockItem& item) const {
    Menu menu;
    if (item.url)
        menu.push_back(action("Open", [this, url = *item.url] { applications_.open(url); }));
    separate(menu);
    addKeeping(menu, item);
    if (!menu.empty() && menu.back().kind == MenuItem::Kind::separator) menu.pop_back();
    return menu;
}

void ItemMenu::addWindows(Menu& menu, ProcessId pid, const DisplayGroup* group) const {
    const auto windows =
        store_.windowsOf(group, WindowPresence::accessibilityWindows(accessibility_, pid)
                                    .value_or(std::vector<AppWindow>{}));
    const bool isFront = store_.frontmostPID.get() == pid;
    bool hasFront = false;
    for (const auto& window : windows) {
        auto line = action(window.title, [this, window] { bringForward(window); });
        if (line.title.empty()) line.title = "Untitled";
        if (window.isMinimized) {
            line.mark = MenuItem::Mark::diamond;
        } else if (isFront && !std::exchange(hasFront, true)) {
            line.mark = MenuItem::Mark::check;
        }
        menu.push_back(std::move(line));
    }
}

void ItemMenu::addKeeping(Menu& menu, const DockItem& item) const {
    const auto& app = item.app;
    // Finder always stays, and only what can be found again can be kept.
    const bool canBeKept = !app || (app->bundleIdentifier == item.id && item.url);
    if (item.id == finderIdentifier || !canBeKept) return;
    menu.push_back(action(item.isPinned ? "Remove from Dock" : "Keep in Dock",
                          [this, id = item.id, isKept = !item.isPinned] { setKept(id, isKept); }));
}

void ItemMenu::addHiding(Menu& menu, const DockItem& item, const Rect& tileFrame) const {
    const auto pid = item.app->pid;
    const auto* app = store_.runningApplication(pid);
    if (app && app->isHidden)
        menu.push_back(action("Show", [this, pid] {
            applications_.unhide(pid);
            applications_.activate(pid);
        }));
    else
        menu.push_back(
            action("Hide", [this, pid, tileFrame] { store_.animator.hide(pid, tileFrame); }));
}

void ItemMenu::addQuitting(Menu& menu, const DockItem& item) const {
    // The file manager of a Mac never ends.
    if (item.id == finderIdentifier) return;
    menu.push_back(action("Quit", [this, pid = item.app->pid] { applications_.terminate(pid); }));
}

void ItemMenu::bringForward(const AppWindow& window) const {
    if (window.isMinimized) accessibility_.setAttribute(window.element, "AXMinimized", false);
    accessibility_.setAttribute(window.element, "AXMain", true);
    accessibility_.performAction(window.element, "AXRaise");
    applications_.activate(window.pid);
}

void ItemMenu::setKept(const std::string& id, bool isKept) const {
    auto ids = store_.pinnedIDs;
    std::erase(ids, id);
    if (isKept) ids.push_back(id);
    store_.setPinned(std::move(ids));
}

} // namespace larkspan
