#include "spaces/WindowPresence.h"

#include "spaces/SpaceMapReader.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <string_view>
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

/// The windows of one app, read until it stops responding: each further call to a hung app would
/// cost another time-out.
class AppWindows {
  public:
    AppWindows(const Accessibility& accessibility, ProcessId pid)
        : accessibility_(accessibility)
        , pid_(pid) {}

    bool answers() const { return answers_; }

    AXAttribute read(const AXElementRef& element, std::string_view name) {
        if (!answers_) return {.error = AXError::cannotComplete};
        auto attribute = accessibility_.attribute(element, name);
        answers_ = attribute.error != AXError::cannotComplete;
        return attribute;
    }

    /// Absent for an element that is not a window to the user.
    std::optional<AppWindow> window(const AXElementRef& element) {
        if (!isOrdinary(element)) return std::nullopt;
        const auto number = accessibility_.window(element);
        if (!number) return std::nullopt;
        return AppWindow{.id = *number,
                         .element = element,
                         .pid = pid_,
                         .title = read(element, "AXTitle").valueOr(std::string()),
                         .isMinimized = read(element, "AXMinimized").valueOr(false),
                         .frame = frame(element)};
    }

  private:
    /// Palettes, sheets and pop-overs have other subroles.
    bool isOrdinary(const AXElementRef& element) {
        const auto subrole = read(element, "AXSubrole").valueOr(std::string());
        return subrole == "AXStandardWindow" || subrole == "AXDialog";
    }

    Rect frame(const AXElementRef& element) {
        const auto position = read(element, "AXPosition").valueOr(Point{});
        const auto size = read(element, "AXSize").valueOr(Size{});
        return {position.x, position.y, size.width, size.height};
    }

    const Accessibility& accessibility_;
    ProcessId pid_;
    bool answers_ = true;
};

/// The token of one element of a process, which need not exist.
Accessibility::RemoteToken remoteToken(ProcessId pid, std::uint64_t element) {
    constexpr std::uint32_t mark = 0x636f636f;
    Accessibility::RemoteToken token{};
    const auto put = [&](std::size_t at, std::uint64_t number, std::size_t bytes) {
        for (std::size_t i = 0; i < bytes; ++i)
            token[at + i] = static_cast<std::uint8_t>(number >> 8 * i);
    };
    put(0, static_cast<std::uint32_t>(pid), 4);
    put(8, mark, 4);
    put(12, element, 8);
    return token;
}

std::set<WindowId> numbersOf(const std::vector<AppWindow>& windows) {
    std::set<WindowId> numbers;
    for (const auto& window : windows)
        numbers.insert(window.id);
    return numbers;
}

/// A search through an app's elements by number.
class ElementSearch {
  public:
    ElementSearch(const Accessibility& accessibility, ProcessId pid, std::vector<AppWindow> listed)
        : accessibility_(accessibility)
        , pid_(pid)
        , app_(accessibility, pid)
        , listed_(numbersOf(listed)) {
        search_.windows = std::move(listed);
    }

    WindowSearch run(const Scheduler& clock, std::set<WindowId> sought) {
        const double deadline = clock.uptime() + searchBudget;
        const bool seeksSome = !sought.empty();
        std::erase_if(sought, [&](WindowId id) { return listed_.contains(id); });
        for (std::uint64_t number = 0; number < elementLimit; ++number) {
            if ((seeksSome && sought.empty()) || clock.uptime() >= deadline) return search_;
            const auto element = accessibility_.createWithRemoteToken(remoteToken(pid_, number));
            if (!element) return search_;
            meet(element);
            if (!app_.answers()) return search_;
            if (!search_.windows.empty()) sought.erase(search_.windows.back().id);
        }
        search_.isConclusive = !met_.empty() && std::ranges::includes(met_, listed_) &&
                               accessibility_.isProcessTrusted();
        return search_;
    }

  private:
    /// Seconds.
    static constexpr double searchBudget = 0.25;
    /// Apps number their elements upwards from 0. Windows come early, unless the app was asked
    /// about many other elements before.
    static constexpr std::uint64_t elementLimit = 1000;

    void meet(const AXElementRef& element) {
        if (accessibility_.pid(element) != pid_) return;
        if (app_.read(element, "AXRole").valueOr(std::string()) != "AXWindow") return;
        auto window = app_.window(element);
        if (!window || !app_.answers() || !met_.insert(window->id).second) return;
        if (listed_.contains(window->id)) return;
        window->isOnOtherSpace = true;
        search_.windows.push_back(*std::move(window));
    }

    const Accessibility& accessibility_;
    const ProcessId pid_;
    AppWindows app_;
    const std::set<WindowId> listed_;
    std::set<WindowId> met_;
    WindowSearch search_;
};

using ListedWindows = std::map<ProcessId, std::set<WindowId>>;

/// The windows of the apps that Accessibility can confirm.
ListedWindows titledWindows(const std::vector<WindowInfo>& windows,
                            const std::set<ProcessId>& pids) {
    ListedWindows listed;
    for (const auto& window : windows)
        if (window.id != 0 && !window.title.empty() && pids.contains(window.pid))
            listed[window.pid].insert(window.id);
    return listed;
}

ClosedCheck checkNow(const Accessibility& accessibility, ProcessId pid,
                     const std::set<WindowId>& listed, const Scheduler& clock) {
    ClosedCheck check{.hidden = {}, .listed = listed, .time = clock.uptime()};
    const auto windows = accessibilityWindows(accessibility, pid);
    // An app that may not be asked confirms nothing, which proves nothing.
    if (windows && accessibility.isProcessTrusted())
        std::ranges::set_difference(listed, numbersOf(*windows),
                                    std::inserter(check.hidden, check.hidden.end()));
    return check;
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
    AppWindows app(accessibility, pid);
    const auto list = app.read(application, "AXWindows");
    if (const auto* elements = list.as<std::vector<AXElementRef>>()) {
        for (const auto& element : *elements) {
            if (auto window = app.window(element)) windows.push_back(*std::move(window));
            // An incomplete list would look like a complete one.
            if (!app.answers()) return std::nullopt;
        }
    }
    if (!app.answers()) return std::nullopt;
    return windows;
}

WindowSearch windowsOnOtherSpaces(const Accessibility& accessibility, ProcessId pid,
                                  const Scheduler& clock, const std::set<WindowId>& sought) {
    auto listed = accessibilityWindows(accessibility, pid);
    if (!listed) return {};
    if (pid < 1 || !accessibility.isProcessTrusted()) return {.windows = *std::move(listed)};
    return ElementSearch(accessibility, pid, *std::move(listed)).run(clock, sought);
}

ClosedChecks closedChecks(const Accessibility& accessibility,
                          const std::vector<WindowInfo>& windows, const std::set<ProcessId>& pids,
                          ClosedChecks kept, const Scheduler& clock) {
    if (pids.empty() || !accessibility.isProcessTrusted()) return kept;
    ClosedChecks checks;
    for (const auto& [pid, listed] : titledWindows(windows, pids)) {
        const auto earlier = kept.find(pid);
        const bool holds = earlier != kept.end() && earlier->second.holds(listed, clock.uptime());
        checks.emplace(pid, holds ? std::move(earlier->second)
                                  : checkNow(accessibility, pid, listed, clock));
    }
    return checks;
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
