#include "adapters/x11/windows/X11WindowServer.h"

#include <fmt/format.h>

namespace larkspan::x11 {

namespace {

// The layers of such windows on a Mac; only layer 0 has ordinary ones.
int layerOf(ClientWindow::Kind kind) {
    switch (kind) {
    case ClientWindow::Kind::normal:
    case ClientWindow::Kind::dialog:
        return 0;
    case ClientWindow::Kind::floating:
        return 3;
    case ClientWindow::Kind::dock:
        return 20;
    case ClientWindow::Kind::desktop:
        return -2147483603;
    }
    return 0;
}

WindowListEntry entryOf(const ClientWindow& window, bool isOnScreen) {
    WindowListEntry entry;
    entry.layer = layerOf(window.kind);
    if (window.owner != 0) entry.ownerPID = window.owner;
    entry.alpha = window.alpha;
    entry.bounds = window.bounds;
    entry.number = window.id;
    entry.isOnScreen = isOnScreen;
    entry.name = window.title;
    return entry;
}

SpaceId spaceOf(DisplayId display, std::uint32_t desktop) {
    return (SpaceId{display} << 32) + desktop + 1;
}

ManagedSpace managedSpace(DisplayId display, std::uint32_t desktop) {
    // On a Mac, the first desktop of a display has no identifier either.
    return {.id64 = spaceOf(display, desktop),
            .type = 0,
            .uuid = desktop == 0 ? std::string() : fmt::format("{}-{}", display, desktop + 1)};
}

/// The desktop number of a Space.
std::uint32_t desktopOf(SpaceId space) {
    return static_cast<std::uint32_t>(space) - 1;
}

DisplayId displayOf(SpaceId space) {
    return static_cast<DisplayId>(space >> 32);
}

/// Calls `visit` with each window that the option selects, front to back, and whether it is on
/// screen.
template <typename Visit>
void visitListed(const DesktopSnapshot& desktop, std::uint32_t option, Visit visit) {
    for (const auto& window : desktop.windows) {
        const bool isOnScreen = !window->isMinimized && window->isOnDesktop(desktop.currentDesktop);
        if (!isOnScreen && (option & WindowListOption::onScreenOnly)) continue;
        const bool isDesktopElement = window->kind == ClientWindow::Kind::desktop;
        if (isDesktopElement && (option & WindowListOption::excludeDesktopElements)) continue;
        visit(*window, isOnScreen);
    }
}

} // namespace

std::optional<std::vector<WindowListEntry>>
X11WindowServer::windowList(std::uint32_t option) const {
    const auto desktop = board_.newest();
    std::vector<WindowListEntry> list;
    list.reserve(desktop->windows.size());
    visitListed(*desktop, option, [&](const ClientWindow& window, bool isOnScreen) {
        list.push_back(entryOf(window, isOnScreen));
    });
    return list;
}

std::optional<std::vector<WindowId>> X11WindowServer::windowNumbers(std::uint32_t option) const {
    std::vector<WindowId> numbers;
    visitListed(*board_.newest(), option,
                [&](const ClientWindow& window, bool) { numbers.push_back(window.id); });
    return numbers;
}

std::optional<std::vector<ManagedDisplay>> X11WindowServer::managedDisplaySpaces() const {
    const auto desktop = board_.newest();
    std::vector<ManagedDisplay> displays;
    for (const auto& screen : desktop->screens) {
        ManagedDisplay display;
        display.displayIdentifier = screen.displayIdentifier;
        display.currentSpace = managedSpace(screen.display, desktop->currentDesktop);
        for (std::uint32_t i = 0; i < desktop->desktopCount; ++i)
            display.spaces.push_back(managedSpace(screen.display, i));
        displays.push_back(std::move(display));
    }
    return displays;
}

std::optional<std::vector<WindowId>> X11WindowServer::windowsOfSpace(SpaceId space) const {
    const auto desktop = board_.newest();
    std::vector<WindowId> windows;
    for (const auto& window : desktop->windows)
        if (!window->isMinimized && window->isDesktopKnown &&
            window->isOnDesktop(desktopOf(space)) &&
            desktop->displayOf(*window) == displayOf(space))
            windows.push_back(window->id);
    return windows;
}

bool X11WindowServer::moveWindows(const std::vector<WindowId>& windows, SpaceId space) {
    const auto desktop = board_.newest();
    bool isAsked = false;
    for (const auto number : windows) {
        const auto window = desktop->find(number);
        if (!window || desktop->displayOf(*window) != displayOf(space)) continue;
        isAsked = requests_.moveToDesktop(number, desktopOf(space)) || isAsked;
    }
    return isAsked;
}

} // namespace larkspan::x11
