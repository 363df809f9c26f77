#include "adapters/sim/SimAccessibility.h"

#include "adapters/sim/world/DockProcess.h"
#include "adapters/sim/world/DockTiles.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace larkspan::sim {

namespace {

/// "coco", the magic number in an element's token.
constexpr std::uint32_t tokenMark = 0x636f636f;

template <typename Number>
Number littleEndian(const Accessibility::RemoteToken& token, std::size_t at) {
    Number number = 0;
    for (std::size_t byte = sizeof(Number); byte-- > 0;)
        number = static_cast<Number>(number << 8 | token[at + byte]);
    return number;
}

AXAttribute failed(AXError error) {
    return {error, std::nullopt};
}

AXAttribute answer(AXValue value) {
    return {AXError::success, std::move(value)};
}

} // namespace

struct SimAccessibility::Element final : AXElement {
    enum class Kind {
        systemWide,
        application,
        window,
        closeButton,
        minimizeButton,
        dockList,
        dockTile
    };

    Element(Kind kindOfElement, ProcessId process, WindowId windowNumber, std::string tileKey)
        : kind(kindOfElement)
        , pid(process)
        , window(windowNumber)
        , tile(std::move(tileKey)) {}

    static AXElementRef make(Kind kind, ProcessId pid = 0, WindowId window = 0,
                             std::string tile = {}) {
        return std::make_shared<Element>(kind, pid, window, std::move(tile));
    }

    Kind kind;
    ProcessId pid;
    WindowId window;
    /// The key of the Dock's tile.
    std::string tile;
    /// Seconds; 0 for the default.
    mutable double timeout = 0;
};

const SimAccessibility::Element& SimAccessibility::of(const AXElementRef& element) {
    return static_cast<const Element&>(*element);
}

bool SimAccessibility::requestTrust() {
    ++trustRequests_;
    if (!world_.trustedForAccessibility) world_.privacy.ask(Permission::accessibility);
    return world_.trustedForAccessibility;
}

AXElementRef SimAccessibility::createSystemWide() const {
    return Element::make(Element::Kind::systemWide);
}

AXElementRef SimAccessibility::createApplication(ProcessId pid) const {
    return Element::make(Element::Kind::application, pid);
}

AXElementRef SimAccessibility::createWithRemoteToken(const RemoteToken& token) const {
    if (!world_.has("_AXUIElementCreateWithRemoteToken") ||
        littleEndian<std::uint32_t>(token, 8) != tokenMark)
        return nullptr;
    const auto pid = static_cast<ProcessId>(littleEndian<std::uint32_t>(token, 0));
    // Element numbers are small: the app itself, then its windows in the order they were opened.
    const auto number = littleEndian<std::uint64_t>(token, 12);
    std::vector<WindowId> own;
    for (const Window& window : world_.windows) {
        if (window.pid == pid) own.push_back(window.id);
    }
    std::sort(own.begin(), own.end());
    if (number == 0) return createApplication(pid);
    // An element can be made with any number; if there is no such window, every call to it fails.
    return Element::make(Element::Kind::window, pid,
                         number <= own.size() ? own[static_cast<std::size_t>(number - 1)] : 0);
}

AXError SimAccessibility::setMessagingTimeout(const AXElementRef& element, float seconds) const {
    if (of(element).kind == Element::Kind::systemWide)
        systemTimeout_ = static_cast<double>(seconds);
    of(element).timeout = static_cast<double>(seconds);
    return AXError::success;
}

AXError SimAccessibility::call(const Element& element) const {
    if (!world_.trustedForAccessibility) return AXError::apiDisabled;
    if (element.kind == Element::Kind::systemWide) return AXError::success;
    App* app = world_.app(element.pid);
    if (!app) return AXError::invalidUIElement;
    if (app->callsUntilDeath && --*app->callsUntilDeath < 0) {
        applications_.kill(element.pid);
        return AXError::invalidUIElement;
    }
    double patience = systemTimeout_ > 0 ? systemTimeout_ : world_.messagingTimeout;
    if (element.timeout > 0) patience = element.timeout;
    if (app->hung || app->answerSeconds > patience) {
        world_.scheduler.spend(patience);
        return AXError::cannotComplete;
    }
    world_.scheduler.spend(app->answerSeconds);
    using Kind = Element::Kind;
    if (element.kind == Kind::application || element.kind == Kind::dockList)
        return AXError::success;
    if (element.kind == Kind::dockTile)
        return dockTile(world_, element.tile) ? AXError::success : AXError::invalidUIElement;
    return world_.window(element.window) ? AXError::success : AXError::invalidUIElement;
}

std::vector<AXElementRef> SimAccessibility::windowElements(ProcessId pid) const {
    std::vector<AXElementRef> elements;
    for (const Window& window : world_.windows) {
        // Windows of Spaces that are not shown are not listed, but minimised ones are.
        const bool inView = window.minimized || !window.space || world_.isSpaceShown(*window.space);
        if (window.pid == pid && inView)
            elements.push_back(Element::make(Element::Kind::window, pid, window.id));
    }
    return elements;
}

AXAttribute SimAccessibility::attribute(const AXElementRef& ref, std::string_view name) const {
    const Element& element = of(ref);
    if (const AXError error = call(element); error != AXError::success) return failed(error);
    switch (element.kind) {
    case Element::Kind::systemWide:
        return systemAttribute(name);
    case Element::Kind::application:
        return applicationAttribute(*world_.app(element.pid), name);
    case Element::Kind::window:
        return windowAttribute(element, name);
    case Element::Kind::dockList:
        return dockListAttribute(element, name);
    case Element::Kind::dockTile:
        return dockTileAttribute(*dockTile(world_, element.tile), name);
    default:
        break;
    }
    if (name == "AXRole") return answer(std::string("AXButton"));
    return failed(AXError::attributeUnsupported);
}

AXAttribute SimAccessibility::systemAttribute(std::string_view name) const {
    if (name != "AXFocusedApplication") return failed(AXError::attributeUnsupported);
    if (!world_.app(world_.frontmost)) return failed(AXError::noValue);
    return answer(createApplication(world_.frontmost));
}

AXAttribute SimAccessibility::applicationAttribute(const App& app, std::string_view name) const {
    if (name == "AXRole") return answer(std::string("AXApplication"));
    if (name == "AXTitle") return answer(app.name);
    if (name == "AXHidden") return answer(app.hidden);
    if (name == "AXFrontmost") return answer(app.pid == world_.frontmost);
    if (name == "AXWindows") return answer(windowElements(app.pid));
    if (name == "AXChildren" && app.bundleIdentifier == DockProcess::bundleIdentifier)
        return answer(std::vector{Element::make(Element::Kind::dockList, app.pid)});
    if (name == "AXMainWindow" || name == "AXFocusedWindow") {
        const Window* front = windows_.front(app.pid);
        if (!front) return failed(AXError::noValue);
        return answer(Element::make(Element::Kind::window, app.pid, front->id));
    }
    return failed(AXError::attributeUnsupported);
}

AXAttribute SimAccessibility::dockListAttribute(const Element& list, std::string_view name) const {
    if (name == "AXRole") return answer(std::string("AXList"));
    if (name != "AXChildren") return failed(AXError::attributeUnsupported);
    std::vector<AXElementRef> tiles;
    for (const DockTile& tile : dockTiles(world_))
        tiles.push_back(Element::make(Element::Kind::dockTile, list.pid, 0, tile.key));
    return answer(std::move(tiles));
}

AXAttribute SimAccessibility::dockTileAttribute(const DockTile& tile, std::string_view name) {
    if (name == "AXRole") return answer(std::string("AXDockItem"));
    if (name == "AXSubrole") return answer(tile.subrole);
    if (name == "AXTitle") return answer(tile.title);
    if (name == "AXFrame") return answer(tile.frame);
    if (name == "AXIsApplicationRunning") return answer(tile.isRunning);
    if (name == "AXURL" && !tile.url.empty()) return answer(tile.url);
    if (name == "AXStatusLabel" && !tile.badge.empty()) return answer(tile.badge);
    const bool isKnown = name == "AXURL" || name == "AXStatusLabel";
    return failed(isKnown ? AXError::noValue : AXError::attributeUnsupported);
}

AXAttribute SimAccessibility::windowAttribute(const Element& element, std::string_view name) const {
    const Window& window = *world_.window(element.window);
    if (name == "AXRole") return answer(std::string("AXWindow"));
    if (name == "AXSubrole") {
        if (window.subrole.empty()) return failed(AXError::noValue);
        return answer(window.subrole);
    }
    if (name == "AXTitle") return window.hasName ? answer(window.title) : failed(AXError::noValue);
    if (name == "AXMinimized") return answer(window.minimized);
    if (name == "AXFullScreen") return answer(window.frameBeforeFullScreen.has_value());
    if (name == "AXPosition") {
        const Point error = world_.app(window.pid)->frameError;
        return answer(Point{window.frame.x + error.x, window.frame.y + error.y});
    }
    if (name == "AXSize") return answer(Size{window.frame.width, window.frame.height});
    if (name == "AXMain" || name == "AXFocused") {
        const Window* front = windows_.front(window.pid);
        return answer(front && front->id == window.id);
    }
    return windowButton(element, name);
}

AXAttribute SimAccessibility::windowButton(const Element& element, std::string_view name) const {
    using Kind = Element::Kind;
    if (name == "AXCloseButton")
        return answer(Element::make(Kind::closeButton, element.pid, element.window));
    if (name == "AXMinimizeButton")
        return answer(Element::make(Kind::minimizeButton, element.pid, element.window));
    return failed(AXError::attributeUnsupported);
}

AXError SimAccessibility::setAttribute(const AXElementRef& ref, std::string_view name,
                                       const AXValue& value) const {
    const Element& element = of(ref);
    if (const AXError error = call(element); error != AXError::success) return error;
    if (element.kind == Element::Kind::window)
        return setWindowAttribute(*world_.window(element.window), name, value);
    if (element.kind == Element::Kind::application)
        return setApplicationAttribute(*world_.app(element.pid), name, value);
    return AXError::attributeUnsupported;
}

AXError SimAccessibility::setWindowAttribute(const Window& window, std::string_view name,
                                             const AXValue& value) const {
    const auto* boolean = std::get_if<bool>(&value);
    const auto* point = std::get_if<Point>(&value);
    const auto* size = std::get_if<Size>(&value);
    const WindowId id = window.id;
    Rect frame = window.frame;
    if (name == "AXMinimized" && boolean) {
        windows_.setMinimized(id, *boolean);
    } else if (name == "AXMain" && boolean) {
        if (*boolean) makeMain(id);
    } else if (name == "AXPosition" && point) {
        frame.x = point->x;
        frame.y = point->y;
        windows_.setFrame(id, frame);
    } else if (name == "AXSize" && size) {
        frame.width = size->width;
        frame.height = size->height;
        windows_.setFrame(id, frame);
    } else if (name == "AXFullScreen" && boolean) {
        if (*boolean)
            windows_.enterFullScreen(id);
        else
            windows_.leaveFullScreen(id);
    } else {
        const bool known = name == "AXMinimized" || name == "AXMain" || name == "AXPosition" ||
                           name == "AXSize" || name == "AXFullScreen";
        return known ? AXError::illegalArgument : AXError::attributeUnsupported;
    }
    return AXError::success;
}

AXError SimAccessibility::setApplicationAttribute(const App& app, std::string_view name,
                                                  const AXValue& value) const {
    const auto* boolean = std::get_if<bool>(&value);
    if (name != "AXHidden" && name != "AXFrontmost") return AXError::attributeUnsupported;
    if (!boolean) return AXError::illegalArgument;
    if (name == "AXFrontmost") {
        if (*boolean) applications_.activate(app.pid);
    } else if (*boolean) {
        applications_.hide(app.pid);
    } else {
        applications_.unhide(app.pid);
    }
    return AXError::success;
}

/// Puts the window in front of the other windows of its app, but not in front of other apps.
void SimAccessibility::makeMain(WindowId id) const {
    const auto isOwn = [pid = world_.window(id)->pid](const Window& each) {
        return each.pid == pid;
    };
    const auto first = std::find_if(world_.windows.begin(), world_.windows.end(), isOwn);
    const auto found = std::find_if(first, world_.windows.end(),
                                    [id](const Window& each) { return each.id == id; });
    std::rotate(first, found, found + 1);
    world_.windowsDidChange();
}

AXError SimAccessibility::performAction(const AXElementRef& ref, std::string_view action) const {
    const Element& element = of(ref);
    if (const AXError error = call(element); error != AXError::success) return error;
    if (element.kind == Element::Kind::window && action == "AXRaise") {
        // A window of an app behind stays behind the frontmost app.
        if (element.pid == world_.frontmost)
            windows_.raise(element.window);
        else
            makeMain(element.window);
        return AXError::success;
    }
    if (element.kind == Element::Kind::closeButton && action == "AXPress") {
        windows_.close(element.window);
        return AXError::success;
    }
    if (element.kind == Element::Kind::minimizeButton && action == "AXPress") {
        windows_.setMinimized(element.window, true);
        return AXError::success;
    }
    return AXError::actionUnsupported;
}

std::optional<ProcessId> SimAccessibility::pid(const AXElementRef& element) const {
    if (of(element).pid < 1) return std::nullopt;
    return of(element).pid;
}

std::optional<WindowId> SimAccessibility::window(const AXElementRef& ref) const {
    const Element& element = of(ref);
    if (!world_.has("_AXUIElementGetWindow")) return std::nullopt;
    const Window* window = world_.window(element.window);
    if (element.kind != Element::Kind::window || !window || !window->hasNumber) return std::nullopt;
    return window->id;
}

Handle SimAccessibility::observe(const AXElementRef& ref, std::string_view notification,
                                 std::function<void()> callback) const {
    const Element& element = of(ref);
    if (call(element) != AXError::success) return {};
    return notifications_.observe(element.pid, element.window, std::string(notification),
                                  std::move(callback));
}

} // namespace larkspan::sim
