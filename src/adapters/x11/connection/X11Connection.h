#pragma once

#include "adapters/x11/connection/Atoms.h"
#include "platform/Handle.h"
#include "platform/Scheduler.h"
#include "platform/Signal.h"

#include <cstdint>
#include <cstdlib>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <variant>

#include <xcb/xcb.h>

namespace larkspan::x11 {

struct FreeReply {
    void operator()(void* memory) const { std::free(memory); }
};
template <typename T>
using Reply = std::unique_ptr<T, FreeReply>;
using Event = Reply<xcb_generic_event_t>;

/// Our own connection to the X server, separate from the toolkit's. Main thread only, except
/// `reply` and `perform`.
class X11Connection {
  public:
    /// Calls back on the main thread whenever the file descriptor can be read, until its handle
    /// ends.
    using Watch = std::function<Handle(int descriptor, std::function<void()> callback)>;

    /// Returns the connection, or the error in one line. Without a name, the display is that of
    /// $DISPLAY.
    static std::variant<std::unique_ptr<X11Connection>, std::string> open(const char* displayName,
                                                                          Scheduler& scheduler);
    ~X11Connection();
    X11Connection(const X11Connection&) = delete;
    X11Connection& operator=(const X11Connection&) = delete;

    xcb_connection_t* raw() const { return connection_; }
    const xcb_screen_t& screen() const { return *screen_; }
    xcb_window_t root() const { return screen_->root; }
    const Atoms& atoms() const { return atoms_; }
    bool isAlive() const { return xcb_connection_has_error(connection_) == 0; }
    /// The newest timestamp of the X server, in milliseconds; 0 before the first one.
    xcb_timestamp_t lastTime() const { return lastTime_; }

    /// Starts to deliver events.
    void start(const Watch& watch);
    /// Handles everything that has arrived. Called by the watch; a test may call it too.
    void dispatch();

    /// Waits for the reply to a request; nullptr if it failed, for example because the window is
    /// gone. Any thread.
    template <typename Answer, typename Cookie>
    Reply<Answer> reply(Answer* (*function)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                        Cookie cookie) {
        xcb_generic_error_t* error = nullptr;
        Reply<Answer> answer(function(connection_, cookie, &error));
        std::free(error);
        dispatchWhatWasRead();
        return answer;
    }

    /// Runs requests without replies and sends them at once; from another thread, soon. Any thread.
    void perform(std::function<void()> requests);
    /// Sends a message about a window to the root window, where window managers expect requests
    /// from other programs.
    void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]);
    void sendToWindow(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]);
    void flush();
    /// Runs `dispatch` once more in a later turn, even if no event arrives. Any thread.
    void dispatchSoon();

    /// Every event, in order.
    Signal<const xcb_generic_event_t&> events;
    /// All events that had arrived were delivered: now request what they made stale. More events
    /// may follow before `settled`.
    Signal<> drained;
    /// No more events have arrived: now announce what changed.
    Signal<> settled;
    /// The connection was closed; the text is one line about it. Called once.
    std::function<void(const std::string&)> onGone;

  private:
    X11Connection(xcb_connection_t* connection, const xcb_screen_t* screen, Scheduler& scheduler);
    void handOut();
    void dispatchWhatWasRead();
    void noteTime(const xcb_generic_event_t& event);
    void checkGone();

    xcb_connection_t* connection_;
    const xcb_screen_t* screen_;
    Scheduler& scheduler_;
    Atoms atoms_;
    Handle watch_;
    xcb_timestamp_t lastTime_ = 0;
    bool isStarted_ = false;
    bool isDispatching_ = false;
    bool isGone_ = false;
    // Events that were read from xcb's queue outside of `dispatch`.
    std::deque<Event> taken_;
    // Expires with the connection; posted tasks check it.
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

} // namespace larkspan::x11
