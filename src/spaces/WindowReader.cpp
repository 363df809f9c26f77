#include "spaces/WindowReader.h"

#include "spaces/SpaceMapReader.h"
#include "spaces/WindowPresence.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace larkspan {

namespace {

using WindowPresence::Listed;

std::optional<SpaceId> shownSpace(const SpaceMap& map, DisplayId display) {
    const auto spaces = map.spaces.find(display);
    if (spaces == map.spaces.end()) return std::nullopt;
    const auto shown = std::ranges::find_if(
        spaces->second, [&](SpaceId space) { return map.shown.contains(space); });
    if (shown == spaces->second.end()) return std::nullopt;
    return *shown;
}

bool hasSpace(const SpaceMap& map, DisplayId display, SpaceId space) {
    const auto spaces = map.spaces.find(display);
    return spaces != map.spaces.end() &&
           std::ranges::find(spaces->second, space) != spaces->second.end();
}

/// Off screen, a window counts on those of its Spaces that are not shown; otherwise it would be on
/// screen on the others, or is minimised or hidden.
std::vector<SpaceId> countingSpaces(const WindowInfo& window, const SpaceMap& map) {
    const auto found = map.windowSpaces.find(window.id);
    if (found == map.windowSpaces.end()) return {};
    auto spaces = found->second;
    if (!window.isOnScreen)
        std::erase_if(spaces, [&](SpaceId space) { return map.shown.contains(space); });
    return spaces;
}

/// The windows of the apps that have at least one window only on Spaces that are not shown.
std::vector<WindowInfo> windowsToConfirm(const std::vector<WindowInfo>& windows,
                                         const SpaceMap& map) {
    std::set<ProcessId> pids;
    for (const auto& window : windows)
        if (!window.isOnScreen && !countingSpaces(window, map).empty()) pids.insert(window.pid);
    std::vector<WindowInfo> unconfirmed;
    std::ranges::copy_if(windows, std::back_inserter(unconfirmed),
                         [&](const WindowInfo& window) { return pids.contains(window.pid); });
    return unconfirmed;
}

void countWindow(WindowRead& read, const WindowInfo& window, std::optional<DisplayId> display,
                 std::set<Slot> slots) {
    read.windowPIDs.insert(window.pid);
    if (display) read.windowDisplays[window.pid].insert(*display);
    if (!slots.empty()) read.windowSlots[window.pid].merge(slots);
    if (display && window.isOnScreen) read.frontDisplays.try_emplace(*display, window.pid);
}

} // namespace

std::vector<WindowInfo> WindowRead::front() const {
    std::vector<WindowInfo> front;
    std::ranges::copy_if(windows, std::back_inserter(front), &WindowInfo::isOnScreen);
    return front;
}

std::set<Slot> slotsOf(const WindowInfo& window, std::optional<DisplayId> display,
                       const SpaceMap& map) {
    const auto spaces = countingSpaces(window, map);
    std::set<Slot> slots;
    for (const auto space : spaces) {
        if (display && hasSpace(map, *display, space)) slots.insert({*display, space});
    }
    if (slots.empty()) {
        for (const auto space : spaces)
            if (map.owners.contains(space)) slots.insert({map.owners.at(space), space});
    }
    if (slots.empty() && window.isOnScreen && display)
        slots.insert({*display, shownSpace(map, *display)});
    return slots;
}

std::optional<std::vector<WindowId>> WindowReader::ids() const {
    if (server_.abilities().announcesChanges) return std::nullopt;
    auto numbers = server_.windowNumbers(WindowListOption::excludeDesktopElements);
    if (numbers) std::ranges::sort(*numbers);
    return numbers;
}

std::optional<WindowRead> WindowReader::read(const std::vector<Screen>& screens,
                                             const std::set<WindowId>& closed) const {
    // Before the list: a change between the two is then noticed by the next read.
    auto numbers = ids();
    auto windows = WindowPresence::listWindows(server_, Listed::everywhere);
    if (!windows) return std::nullopt;
    const auto displays = server_.managedDisplaySpaces();

    WindowRead read;
    if (displays) read.spaceMap = readSpaceMap(server_, *displays, screens);
    const SpaceMap none;
    const SpaceMap& map = read.spaceMap ? *read.spaceMap : none;
    for (const auto& screen : screens)
        if (const auto space = shownSpace(map, screen.display))
            read.frontSpaces[screen.display] = *space;

    read.ids = std::move(numbers);
    if (!server_.abilities().readsAtOnce) read.unconfirmed = windowsToConfirm(*windows, map);
    read.windows.reserve(windows->size());
    for (auto& window : *windows) {
        if (!window.isOnScreen && closed.contains(window.id)) continue;
        const auto display = WindowPresence::displayOf(window.bounds, screens);
        auto slots = slotsOf(window, display, map);
        if (slots.empty() && !window.isOnScreen) continue;
        countWindow(read, window, display, std::move(slots));
        read.windows.push_back(std::move(window));
    }
    read.fullScreen = WindowPresence::fullScreenState(
        read.windows, screens, displays.value_or(std::vector<ManagedDisplay>{}));
    return read;
}

std::optional<WindowRead> WindowReader::readUnlessSame(const ReadBase& base,
                                                       const std::vector<Screen>& screens,
                                                       const std::set<WindowId>& closed) const {
    // Without the function that returns the numbers, the windows on screen are compared.
    const auto numbers = base.ids ? ids() : std::nullopt;
    if (!numbers || numbers == base.ids) {
        const auto front = WindowPresence::listWindows(server_, Listed::onScreen);
        if (!front || *front == base.front) return std::nullopt;
    }
    return read(screens, closed);
}

} // namespace larkspan
