#include "adapters/x11/windows/X11Accessibility.h"

#include <utility>

namespace larkspan::x11 {

namespace {

class Element : public AXElement {
  public:
    enum class Role { systemWide, application, window, closeButton };

    Element(Role elementRole, std::uint32_t elementNumber)
        : role(elementRole)
        , number(elementNumber) {}

    const Role role;
    /// The number of the application or the window.
    const std::uint32_t number;
};

AXElementRef makeElement(Element::Role role, std::uint32_t number) {
    return std::make_shared<const Element>(role, number);
}

const Element* elementOf(const AXElementRef& element) {
    return dynamic_cast<const Element*>(element.get());
}

AXAttribute failed(AXError error) {
    return {.error = error};
}

AXAttribute answer(AXValue value) {
    return {.value = std::move(value)};
}

std::string subroleOf(ClientWindow::Kind kind) {
    switch (kind) {
    case ClientWindow::Kind::normal:
        return "AXStandardWindow";
    case ClientWindow::Kind::dialog:
        return "AXDialog";
    case ClientWindow::Kind::floating:
        return "AXFloatingWindow";
    default:
        return "AXUnknown";
    }
}

} // namespace

X11Accessibility::X11Accessibility(X11Connection& connection, const SnapshotBoard& board,
                                   WindowRequests& requests, const ClientPing& ping,
                                   std::function<void(ProcessId, WindowId)> setMainWindow)
    : connection_(connection)
    , board_(board)
    , requests_(requests)
    , ping_(ping)
    , setMainWindow_(std::move(setMainWindow)) {}

AXElementRef X11Accessibility::createSystemWide() const {
    return makeElement(Element::Role::systemWide, 0);
}

AXElementRef X11Accessibility::createApplication(ProcessId pid) const {
    return makeElement(Element::Role::application, static_cast<std::uint32_t>(pid));
}

AXError X11Accessibility::setMessagingTimeout(const AXElementRef& reference, float seconds) const {
    const auto* element = elementOf(reference);
    if (!element || !(seconds >= 0)) return AXError::illegalArgument;
    if (element->role == Element::Role::systemWide)
        messagingTimeout_ = seconds > 0 ? seconds : defaultMessagingTimeout;
    return AXError::success;
}

AXAttribute X11Accessibility::attribute(const AXElementRef& reference,
                                        std::string_view name) const {
    const auto* element = elementOf(reference);
    if (!element) return failed(AXError::illegalArgument);
    if (element->role == Element::Role::systemWide) return failed(AXError::attributeUnsupported);
    if (element->role == Element::Role::application)
        return applicationAttribute(static_cast<ProcessId>(element->number), name);
    const auto window = board_.newest()->find(element->number);
    if (!window) return failed(AXError::invalidUIElement);
    if (element->role == Element::Role::window) return windowAttribute(*window, name);
    return name == "AXRole" ? answer(std::string("AXButton"))
                            : failed(AXError::attributeUnsupported);
}

AXAttribute X11Accessibility::applicationAttribute(ProcessId pid, std::string_view name) const {
    if (name == "AXRole") return answer(std::string("AXApplication"));
    const auto desktop = board_.newest();
    if (name == "AXWindows") {
        const auto windows = desktop->windowsOf(pid);
        if (!isResponding(windows)) return failed(AXError::cannotComplete);
        std::vector<AXElementRef> elements;
        for (const auto& window : windows)
            elements.push_back(makeElement(Element::Role::window, window->id));
        return answer(std::move(elements));
    }
    if (name == "AXFocusedWindow") {
        const auto active = desktop->find(desktop->activeWindow);
        if (!active || active->owner != pid) return failed(AXError::noValue);
        return answer(makeElement(Element::Role::window, active->id));
    }
    return failed(AXError::attributeUnsupported);
}

/// For the user, the processes of one application are one: it responds if any of its windows does.
bool X11Accessibility::isResponding(const std::vector<ClientWindowRef>& windows) const {
    std::vector<WindowId> asked;
    for (const auto& window : windows)
        if (window->supportsPings) asked.push_back(window->id);
    // A window that cannot be pinged may belong to a process that responds.
    if (asked.size() < windows.size()) return true;
    return ping_.hasReply(asked, messagingTimeout_);
}

AXAttribute X11Accessibility::windowAttribute(const ClientWindow& window,
                                              std::string_view name) const {
    if (name == "AXRole") return answer(std::string("AXWindow"));
    if (name == "AXSubrole") return answer(subroleOf(window.kind));
    if (name == "AXTitle") return answer(window.title);
    if (name == "AXMinimized") return answer(window.isMinimized);
    if (name == "AXFullScreen") return answer(window.isFullScreen);
    if (name == "AXMain") return answer(window.id == board_.newest()->activeWindow);
    if (name == "AXPosition") return answer(Point{window.bounds.x, window.bounds.y});
    if (name == "AXSize") return answer(Size{window.bounds.width, window.bounds.height});
    if (name == "AXCloseButton") return answer(makeElement(Element::Role::closeButton, window.id));
    return failed(AXError::attributeUnsupported);
}

AXError X11Accessibility::setAttribute(const AXElementRef& reference, std::string_view name,
                                       const AXValue& value) const {
    const auto* element = elementOf(reference);
    const auto* flag = std::get_if<bool>(&value);
    if (!element || !flag) return AXError::illegalArgument;
    if (element->role != Element::Role::window) return AXError::attributeUnsupported;
    const auto window = board_.newest()->find(element->number);
    if (!window) return AXError::invalidUIElement;
    if (name == "AXMinimized") {
        if (*flag && !window->isMinimized) requests_.iconify(window->id);
        if (!*flag && window->isMinimized) requests_.restore(window->id);
        return AXError::success;
    }
    if (name == "AXMain") {
        if (*flag) makeMain(*window);
        return AXError::success;
    }
    return AXError::attributeUnsupported;
}

AXError X11Accessibility::performAction(const AXElementRef& reference,
                                        std::string_view action) const {
    const auto* element = elementOf(reference);
    if (!element) return AXError::illegalArgument;
    const bool raises = element->role == Element::Role::window && action == "AXRaise";
    const bool closes = element->role == Element::Role::closeButton && action == "AXPress";
    if (!raises && !closes) return AXError::actionUnsupported;
    const auto window = board_.newest()->find(element->number);
    if (!window) return AXError::invalidUIElement;
    if (closes) {
        requests_.close(window->id);
    } else {
        makeMain(*window);
        requests_.raise(window->id);
    }
    return AXError::success;
}

void X11Accessibility::makeMain(const ClientWindow& window) const {
    connection_.perform(
        [this, owner = window.owner, id = window.id] { setMainWindow_(owner, id); });
}

std::optional<ProcessId> X11Accessibility::pid(const AXElementRef& reference) const {
    const auto* element = elementOf(reference);
    if (!element || element->role == Element::Role::systemWide) return std::nullopt;
    if (element->role == Element::Role::application) return static_cast<ProcessId>(element->number);
    const auto window = board_.newest()->find(element->number);
    return window ? std::optional(window->owner) : std::nullopt;
}

std::optional<WindowId> X11Accessibility::window(const AXElementRef& reference) const {
    const auto* element = elementOf(reference);
    if (!element || element->role != Element::Role::window) return std::nullopt;
    const auto window = board_.newest()->find(element->number);
    return window ? std::optional(window->id) : std::nullopt;
}

bool X11Accessibility::exists(const AXElementRef& reference) const {
    const auto owner = pid(reference);
    return owner && !board_.newest()->windowsOf(*owner).empty();
}

Handle X11Accessibility::observe(const AXElementRef& reference, std::string_view notification,
                                 std::function<void()> callback) const {
    if (!exists(reference)) return {};
    auto notifyIfMatching = [name = std::string(notification), pid = pid(reference),
                             only = window(reference),
                             callback = std::move(callback)](const Notification& sent) {
        if (sent.name == name && sent.pid == pid && (!only || sent.window == only)) callback();
    };
    // Created on the main thread, maybe after the handle has ended there.
    struct Observation {
        Handle subscription;
        bool hasEnded = false;
    };
    auto observation = std::make_shared<Observation>();
    connection_.perform([this, observation, notifyIfMatching = std::move(notifyIfMatching)] {
        if (!observation->hasEnded)
            observation->subscription = notifications_.subscribe(notifyIfMatching);
    });
    return Handle([observation] {
        observation->hasEnded = true;
        observation->subscription.reset();
    });
}

void X11Accessibility::announceSince(const DesktopSnapshot& before) {
    if (!notifications_.hasSubscribers()) return;
    const auto now = board_.newest();
    const auto announce = [this](const ClientWindow& window, std::string_view notification) {
        notifications_.emit({notification, window.owner, window.id});
    };
    for (const auto& was : before.windows) {
        const auto is = now->find(was->id);
        if (is == was) continue;
        if (!is) {
            announce(*was, "AXUIElementDestroyed");
            continue;
        }
        const Rect &from = was->bounds, &to = is->bounds;
        if (from.x != to.x || from.y != to.y) announce(*is, "AXWindowMoved");
        if (from.width != to.width || from.height != to.height) announce(*is, "AXWindowResized");
    }
    const auto active = now->find(now->activeWindow);
    if (active && active->id != before.activeWindow) announce(*active, "AXFocusedWindowChanged");
}

} // namespace larkspan::x11
