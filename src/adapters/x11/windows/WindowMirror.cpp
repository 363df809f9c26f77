#include "adapters/x11/windows/WindowMirror.h"

#include <unistd.h>

#include <algorithm>
#include <unordered_set>

namespace larkspan::x11 {

namespace {

// More windows than any desktop has; in 32-bit units of a property.
constexpr std::uint32_t longestList = 1u << 16;
constexpr std::uint32_t mostDesktops = 1024;

// The frame around the window, which no property names.
constexpr auto frameFacet = ClientPropertyReader::Facets{1} << 30;

xcb_get_property_cookie_t askRoot(X11Connection& connection, xcb_atom_t property,
                                  std::uint32_t length = 1) {
    return xcb_get_property(connection.raw(), 0, connection.root(), property,
                            XCB_GET_PROPERTY_TYPE_ANY, 0, length);
}

std::vector<std::uint32_t> numbers(X11Connection& connection, xcb_get_property_cookie_t cookie) {
    const auto reply = connection.reply(xcb_get_property_reply, cookie);
    if (!reply || reply->format != 32) return {};
    const auto* first = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

// A change of the root window's size may be the only event when the monitors change.
constexpr std::uint32_t rootEvents =
    XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;

std::uint32_t numberOr(std::uint32_t fallback, const std::vector<std::uint32_t>& numbers) {
    return numbers.empty() ? fallback : numbers.front();
}

void selectEvents(X11Connection& connection, xcb_window_t window, std::uint32_t mask) {
    xcb_change_window_attributes(connection.raw(), window, XCB_CW_EVENT_MASK, &mask);
}

// Panels and the desktop's own background belong to no application.
bool isOfDesktopItself(ClientWindow::Kind kind) {
    return kind == ClientWindow::Kind::dock || kind == ClientWindow::Kind::desktop;
}

} // namespace

WindowMirror::WindowMirror(X11Connection& connection, double scale, FindOwner findOwner)
    : connection_(connection)
    , reader_(connection)
    , scale_(scale)
    , findOwner_(std::move(findOwner))
    , identityFacets_(reader_.facetsOf(XCB_ATOM_WM_CLASS) |
                      reader_.facetsOf(XCB_ATOM_WM_CLIENT_MACHINE) |
                      reader_.facetsOf(connection.atoms().netWmPid) |
                      reader_.facetsOf(connection.atoms().netWmWindowType))
    , eventSubscription_(
          connection.events.subscribe([this](const xcb_generic_event_t& event) { handle(event); }))
    , drainedSubscription_(connection.drained.subscribe([this] { refresh(); })) {
    // Selected before the first read, so that no change in between is missed.
    selectEvents(connection_, connection_.root(), rootEvents);
    refresh();
}

bool WindowMirror::isSupported(xcb_atom_t request) const {
    return std::find(supported_.begin(), supported_.end(), request) != supported_.end();
}

// Events

void WindowMirror::handle(const xcb_generic_event_t& event) {
    switch (event.response_type & 0x7f) {
    case XCB_PROPERTY_NOTIFY:
        handleProperty(reinterpret_cast<const xcb_property_notify_event_t&>(event));
        break;
    case XCB_CONFIGURE_NOTIFY:
        handleConfigure(reinterpret_cast<const xcb_configure_notify_event_t&>(event));
        break;
    case XCB_DESTROY_NOTIFY: {
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t&>(event).window;
        if (window == manager_) stale_.manager = stale_.windows = true;
        framed_.erase(window);
        if (const auto found = clients_.find(window); found != clients_.end()) {
            clients_.erase(found);
            needsPublishing_ = true;
        }
        if (manager_ == 0) stale_.windows = true;
        break;
    }
    case XCB_REPARENT_NOTIFY:
        makeStale(reinterpret_cast<const xcb_reparent_notify_event_t&>(event).window,
                  frameFacet | ClientPropertyReader::geometryFacet);
        break;
    case XCB_MAP_NOTIFY:
    case XCB_UNMAP_NOTIFY:
    case XCB_CREATE_NOTIFY:
    case XCB_CIRCULATE_NOTIFY:
        // With a window manager, its list is used instead.
        if (manager_ == 0) stale_.windows = true;
        break;
    default:
        break;
    }
}

void WindowMirror::handleProperty(const xcb_property_notify_event_t& event) {
    const auto& atoms = connection_.atoms();
    if (event.window == connection_.root()) {
        if (event.atom == atoms.netSupportingWmCheck) stale_.manager = stale_.windows = true;
        if (event.atom == atoms.netSupported) stale_.supported = true;
        if (event.atom == atoms.netClientListStacking || event.atom == atoms.netClientList)
            stale_.windows = true;
        if (event.atom == atoms.netActiveWindow) stale_.active = true;
        if (event.atom == atoms.netCurrentDesktop || event.atom == atoms.netNumberOfDesktops)
            stale_.desktops = true;
        return;
    }
    makeStale(event.window, reader_.facetsOf(event.atom));
}

void WindowMirror::makeStale(WindowId window, ClientPropertyReader::Facets facets) {
    const auto found = clients_.find(window);
    if (found == clients_.end() || facets == 0) return;
    if (found->second.stale == 0) staleClients_.push_back(window);
    found->second.stale |= facets;
}

// The values come from a read and not from the event, whose coordinates are relative to the frame.
// A window moves with its frame, and not every window manager sends it an event for that.
void WindowMirror::handleConfigure(const xcb_configure_notify_event_t& event) {
    if (manager_ == 0) stale_.windows = true;
    makeStale(event.window, ClientPropertyReader::geometryFacet);
    if (const auto framed = framed_.find(event.window); framed != framed_.end())
        makeStale(framed->second, ClientPropertyReader::geometryFacet);
}

// Reading

void WindowMirror::refresh() {
    if (!connection_.isAlive()) return;
    if (std::exchange(stale_.manager, false)) readManager();
    readRoot();
    findFrames();
    refreshClients();
    if (std::exchange(needsPublishing_, false)) publish();
    const auto front = windowInFront();
    if (std::exchange(active_, front) != front) hasChanged_ = true;
}

// The manager's window names itself; a window left by a dead manager does not count.
void WindowMirror::readManager() {
    const auto check = connection_.atoms().netSupportingWmCheck;
    const auto named = numberOr(0, numbers(connection_, askRoot(connection_, check)));
    manager_ = 0;
    if (named != 0) {
        selectEvents(connection_, named, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
        const auto itself =
            xcb_get_property(connection_.raw(), 0, named, check, XCB_GET_PROPERTY_TYPE_ANY, 0, 1);
        if (numberOr(0, numbers(connection_, itself)) == named) manager_ = named;
    }
    selectEvents(connection_, connection_.root(),
                 rootEvents | (manager_ ? 0 : XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY));
    stale_ = {.manager = false};
}

void WindowMirror::readRoot() {
    const auto reads = std::exchange(stale_, {false, false, false, false, false});
    const auto& atoms = connection_.atoms();
    xcb_get_property_cookie_t supported{}, stacking{}, list{}, active{}, current{}, count{};
    if (reads.supported) supported = askRoot(connection_, atoms.netSupported, longestList);
    if (reads.windows && manager_) {
        stacking = askRoot(connection_, atoms.netClientListStacking, longestList);
        list = askRoot(connection_, atoms.netClientList, longestList);
    }
    if (reads.active) active = askRoot(connection_, atoms.netActiveWindow);
    if (reads.desktops) {
        current = askRoot(connection_, atoms.netCurrentDesktop);
        count = askRoot(connection_, atoms.netNumberOfDesktops);
    }

    if (reads.supported) supported_ = numbers(connection_, supported);
    if (reads.windows && manager_) {
        auto bottomToTop = numbers(connection_, stacking);
        auto byAge = numbers(connection_, list);
        takeStacking(bottomToTop.empty() ? std::move(byAge) : std::move(bottomToTop));
    } else if (reads.windows) {
        takeStacking(topLevelWindows());
    }
    if (reads.active) takeActive(numberOr(0, numbers(connection_, active)));
    if (reads.desktops) {
        const auto desktop = numberOr(0, numbers(connection_, current));
        const auto desktops =
            std::clamp(numberOr(1, numbers(connection_, count)), 1u, mostDesktops);
        if (std::exchange(currentDesktop_, desktop) != desktop) hasChanged_ = true;
        if (std::exchange(desktopCount_, desktops) != desktops) hasChanged_ = true;
    }
}

void WindowMirror::takeActive(WindowId window) {
    if (std::exchange(activeForManager_, window) != window && window != 0) activatedHere_ = 0;
}

// Without a window manager: visible windows on the root window that are not menus or tooltips.
std::vector<WindowId> WindowMirror::topLevelWindows() {
    const auto tree = connection_.reply(xcb_query_tree_reply,
                                        xcb_query_tree(connection_.raw(), connection_.root()));
    if (!tree) return {};
    const auto* children = xcb_query_tree_children(tree.get());
    const std::vector<WindowId> all(children,
                                    children + xcb_query_tree_children_length(tree.get()));
    std::vector<xcb_get_window_attributes_cookie_t> cookies;
    for (const auto window : all)
        cookies.push_back(xcb_get_window_attributes(connection_.raw(), window));
    std::vector<WindowId> shown;
    for (std::size_t i = 0; i < all.size(); ++i) {
        const auto attributes = connection_.reply(xcb_get_window_attributes_reply, cookies[i]);
        if (attributes && attributes->map_state == XCB_MAP_STATE_VIEWABLE &&
            !attributes->override_redirect && attributes->_class == XCB_WINDOW_CLASS_INPUT_OUTPUT)
            shown.push_back(all[i]);
    }
    return shown;
}

void WindowMirror::takeStacking(std::vector<WindowId> bottomToTop) {
    const std::unordered_set<WindowId> listed(bottomToTop.begin(), bottomToTop.end());
    // A window that was gone when it was read but is still listed may be a new one: the X server
    // reuses numbers.
    std::erase_if(clients_, [&](const auto& entry) {
        return !listed.contains(entry.first) || entry.second.isGone;
    });
    for (const auto window : bottomToTop)
        if (!clients_.contains(window)) adopt(window);
    if (bottomToTop == stacking_) return;
    stacking_ = std::move(bottomToTop);
    needsPublishing_ = true;
}

void WindowMirror::adopt(WindowId window) {
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE | XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    const auto selection =
        xcb_change_window_attributes_checked(connection_.raw(), window, XCB_CW_EVENT_MASK, &mask);
    clients_.emplace(window, Client{.facts = {.id = window}, .selection = selection});
    staleClients_.push_back(window);
}

// Level by level, with one round trip for all windows. Before the positions are read, so that no
// move of a frame in between is missed.
void WindowMirror::findFrames() {
    struct Climb {
        WindowId client = 0;
        xcb_window_t at = 0;
        xcb_query_tree_cookie_t above{};
    };
    std::vector<Climb> climbs;
    for (const auto window : staleClients_)
        if (const auto found = clients_.find(window);
            found != clients_.end() && (found->second.stale & frameFacet))
            climbs.push_back({window, window, {}});
    while (!climbs.empty()) {
        for (auto& climb : climbs)
            climb.above = xcb_query_tree(connection_.raw(), climb.at);
        std::erase_if(climbs, [this](Climb& climb) {
            const auto tree = connection_.reply(xcb_query_tree_reply, climb.above);
            if (!tree) return true;
            if (tree->parent != tree->root && tree->parent != XCB_NONE) {
                climb.at = tree->parent;
                return false;
            }
            if (climb.at == climb.client) return true;
            // If a managed window contains another one, more events are already selected on it.
            if (!clients_.contains(climb.at))
                selectEvents(connection_, climb.at, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
            framed_[climb.at] = climb.client;
            return true;
        });
    }
}

void WindowMirror::refreshClients() {
    std::vector<std::pair<WindowId, ClientPropertyReader::Pending>> pending;
    for (const auto window : std::exchange(staleClients_, {})) {
        const auto found = clients_.find(window);
        if (found == clients_.end() || found->second.stale == 0) continue;
        pending.emplace_back(window,
                             reader_.request(window, std::exchange(found->second.stale, 0)));
    }
    for (const auto& [window, read] : pending) {
        auto& client = clients_.at(window);
        client.isGone = !collect(client, read);
        if (client.isGone || isOurs(client)) {
            if (std::exchange(client.window, nullptr)) needsPublishing_ = true;
            continue;
        }
        const bool isSameOwner = client.window && (read.facets & identityFacets_) == 0;
        show(client, isSameOwner ? client.window->owner : ownerOf(client));
    }
}

// The properties alone do not prove that the window existed when its events were selected: its
// number may have been given to a new window in between, whose changes would then be missed.
bool WindowMirror::collect(Client& client, const ClientPropertyReader::Pending& read) {
    const bool isThere = reader_.collect(read, client.facts);
    if (!client.selection) return isThere;
    const auto selection = *std::exchange(client.selection, std::nullopt);
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection_.raw(), selection));
    return isThere && !error;
}

void WindowMirror::show(Client& client, ProcessId owner) {
    ClientWindow window = describe(client.facts, connection_.atoms(), scale_);
    window.owner = isOfDesktopItself(window.kind) ? 0 : owner;
    if (client.window && *client.window == window) return;
    client.window = std::make_shared<const ClientWindow>(std::move(window));
    needsPublishing_ = true;
}

// A dialog that does not name its application belongs to the window it is transient for.
ProcessId WindowMirror::ownerOf(const Client& client) const {
    const auto& facts = client.facts;
    const auto kind = describe(facts, connection_.atoms(), scale_).kind;
    if (isOfDesktopItself(kind)) return 0;
    if (facts.className.empty() && facts.instance.empty()) {
        const auto parent = clients_.find(facts.transientFor);
        if (parent != clients_.end() && parent->second.window) return parent->second.window->owner;
    }
    return findOwner_(facts);
}

bool WindowMirror::isOurs(const Client& client) const {
    return client.facts.pid == getpid();
}

void WindowMirror::publish() {
    std::vector<ClientWindowRef> windows;
    windows.reserve(stacking_.size());
    for (auto it = stacking_.rbegin(); it != stacking_.rend(); ++it) {
        const auto found = clients_.find(*it);
        if (found != clients_.end() && found->second.window)
            windows.push_back(found->second.window);
    }
    if (windows == windows_) return;
    windows_ = std::move(windows);
    hasChanged_ = true;
}

WindowId WindowMirror::windowInFront() const {
    if (activatedHere_ == 0) return activeForManager_;
    using Kind = ClientWindow::Kind;
    const auto front = std::find_if(windows_.begin(), windows_.end(), [this](const auto& window) {
        const bool isOrdinary = window->kind == Kind::normal || window->kind == Kind::dialog;
        return isOrdinary && !window->isMinimized && window->isOnDesktop(currentDesktop_);
    });
    const bool isBeforeAllOthers = front != windows_.end() && (*front)->id == activatedHere_;
    return isBeforeAllOthers ? activatedHere_ : activeForManager_;
}

void WindowMirror::findOwnersAgain() {
    for (auto& [id, client] : clients_)
        if (client.window) show(client, ownerOf(client));
    if (std::exchange(needsPublishing_, false)) publish();
}

void WindowMirror::noteActivated(WindowId window) {
    const auto found = clients_.find(window);
    const bool takesKeyboard = found == clients_.end() || found->second.facts.takesKeyboard();
    activatedHere_ = manager_ != 0 && takesKeyboard ? 0 : window;
}

} // namespace larkspan::x11
