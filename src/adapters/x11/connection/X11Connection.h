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

/// A connection to the X server of its own, apart from the toolkit's. Main thread only, but for
/// `reply` and `perform`.
class X11Connection {
  public:
    /// Calls back on the main thread whenever the file descriptor can be read, until its handle
    /// ends.
    using Watch = std::function<Handle(int descriptor, std::function<void()> callback)>;

    /// The connection, or one line that says why there is none. Without a name: $DISPLAY's.
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
    /// The newest time the X server has told of, in its milliseconds; 0 before the first.
    xcb_timestamp_t lastTime() const { return lastTime_; }

    /// Begins to hand out events.
    void start(const Watch& watch);
    /// Handles everything that has arrived. Called by the watch; a test may call it too.
    void dispatch();

    /// Awaits the answer to a request; nullptr when it failed, such as when the window is gone. Any
    /// thread.
    template <typename Answer, typename Cookie>
    Reply<Answer> reply(Answer* (*function)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                        Cookie cookie) {
        xcb_generic_error_t* error = nullptr;
        Reply<Answer> answer(function(connection_, cookie, &error));
        std::free(error);
        dispatchWhatWasRead();
        return answer;
    }

    /// Runs requests that await no answer and sends them at once; from another thread, soon. Any
    /// thread.
    void perform(std::function<void()> requests);
    /// Sends a message about a window to the root window, as a window manager expects requests of
    /// other programs.
    void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]);
    void sendToWindow(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]);
    void flush();
    /// Settles once more after what is under way, though no event may come. Any thread.
    void dispatchSoon();

    /// Every event, in order.
    Signal<const xcb_generic_event_t&> events;
    /// The events that had arrived are through: the time to ask the server for what they made
    /// stale. Further events may follow before `settled`.
    Signal<> drained;
    /// Nothing more has arrived: the time to announce what changed.
    Signal<> settled;
    /// The connection has ended, with one line that says so. Called once.
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
    // Events taken from xcb's own queue outside of `dispatch`.
    std::deque<Event> taken_;
    // Ends with the connection, so that a posted task knows.
    std::shared_ptr<int> life_ = std::make_shared<int>();
};

} // namespace larkspan::x11
