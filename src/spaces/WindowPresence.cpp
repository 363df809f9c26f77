#include "spaces/WindowPresence.h"

#include "spaces/SpaceMapReader.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace larkspan::WindowPresence {

namespace {

constexpr double minimumWidth = 60;
constexpr double minimumHeight = 40;
constexpr double frameTolerance = 1.0;

bool isAppWindow(const WindowListEntry& entry) {
    return entry.layer == 0 && entry.ownerPID && entry.alpha.value_or(1) > 0 && entry.bounds &&
           entry.bounds->width >= minimumWidth && entry.bounds->height >= minimumHeight;
}

template <typename T>
T valueOr(const AXAttribute& attribute, T fallback) {
    const T* value = attribute.as<T>();
    return value ? *value : fallback;
}

Rect frameOf(const Accessibility& accessibility, const AXElementRef& element) {
    const auto position = valueOr(accessibility.attribute(element, "AXPosition"), Point{});
    const auto size = valueOr(accessibility.attribute(element, "AXSize"), Size{});
    return {position.x, position.y, size.width, size.height};
}

/// Palettes, sheets and pop-overs have other subroles and are no windows to a user.
bool isOrdinary(const Accessibility& accessibility, const AXElementRef& element) {
    const auto subrole = valueOr(accessibility.attribute(element, "AXSubrole"), std::string());
    return subrole == "AXStandardWindow" || subrole == "AXDialog";
}

std::optional<AppWindow> appWindow(const Accessibility& accessibility, ProcessId pid,
                                   const AXElementRef& element) {
    if (!isOrdinary(accessibility, element)) return std::nullopt;
    const auto number = accessibility.window(element);
    if (!number) return std::nullopt;
    return AppWindow{
        .id = *number,
        .element = element,
        .pid = pid,
        .title = valueOr(accessibility.attribute(element, "AXTitle"), std::string()),
        .isMinimized = valueOr(accessibility.attribute(element, "AXMinimized"), false),
        .frame = frameOf(accessibility, element),
    };
}

} // namespace

std::optional<std::vector<WindowInfo>> listWindows(const WindowServer& server, Listed listed) {
    auto option = WindowListOption::excludeDesktopElements;
    if (listed == Listed::onScreen) option |= WindowListOption::onScreenOnly;
    auto entries = server.windowList(option);
    if (!entries) return std::nullopt;

    std::vector<WindowInfo> windows;
    windows.reserve(entries->size());
    for (auto& entry : *entries) {
        if (!isAppWindow(entry)) continue;
        windows.push_back({entry.number.value_or(0), *entry.ownerPID, *entry.bounds,
                           entry.isOnScreen.value_or(false),
                           std::move(entry.name).value_or(std::string())});
    }
    return windows;
}

std::optional<std::vector<AppWindow>> accessibilityWindows(const Accessibility& accessibility,
                                                           ProcessId pid,
                                                           std::optional<float> timeout) {
    std::vector<AppWindow> windows;
    if (pid < 1 || !accessibility.isProcessTrusted()) return windows;
    const auto application = accessibility.createApplication(pid);
    if (timeout) accessibility.setMessagingTimeout(application, *timeout);
    const auto list = accessibility.attribute(application, "AXWindows");
    if (list.error == AXError::cannotComplete) return std::nullopt;
    const auto* elements = list.as<std::vector<AXElementRef>>();
    if (!elements) return windows;
    for (const auto& element : *elements) {
        if (auto window = appWindow(accessibility, pid, element))
            windows.push_back(*std::move(window));
    }
    return windows;
}

bool framesMatch(const Rect& a, const Rect& b) {
    return std::abs(a.x - b.x) <= frameTolerance && std::abs(a.y - b.y) <= frameTolerance &&
           std::abs(a.width - b.width) <= frameTolerance &&
           std::abs(a.height - b.height) <= frameTolerance;
}

std::set<std::string> fullScreenDisplays(const std::vector<ManagedDisplay>& displays) {
    std::set<std::string> identifiers;
    for (const auto& display : displays) {
        if (!display.displayIdentifier || !display.currentSpace) continue;
        if (display.currentSpace->type == fullScreenSpaceType)
            identifiers.insert(*display.displayIdentifier);
    }
    return identifiers;
}

FullScreenState fullScreenState(const std::vector<WindowInfo>& windows,
                                const std::vector<Screen>& screens,
                                const std::vector<ManagedDisplay>& displays) {
    FullScreenState state;
    const auto taken = fullScreenDisplays(displays);
    for (const auto& screen : screens) {
        if (taken.contains(screen.displayIdentifier) || taken.contains(sharedSpacesIdentifier))
            state.spaces.push_back(screen.frame);
        const bool isCovered = std::ranges::any_of(windows, [&](const WindowInfo& window) {
            return window.isOnScreen && framesMatch(window.bounds, screen.bounds);
        });
        if (isCovered) state.windows.push_back(screen.frame);
    }
    return state;
}

std::optional<DisplayId> displayOf(const Rect& bounds, const std::vector<Screen>& screens) {
    std::optional<DisplayId> best;
    double bestArea = 0;
    for (const auto& screen : screens) {
        const double area = intersection(bounds, screen.bounds).area();
        if (area <= bestArea) continue;
        best = screen.display;
        bestArea = area;
    }
    return best;
}

} // namespace larkspan::WindowPresence
