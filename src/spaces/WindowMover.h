#pragma once

#include "platform/Scheduler.h"
#include "platform/WindowServer.h"

#include <functional>
#include <list>
#include <vector>

namespace larkspan {

/// Moves windows to another Space, and looks whether they went: newer systems take the request and
/// do nothing. Once that has been seen, nothing is asked again; where a window did go before, one
/// that stays says nothing of the others. Main thread only.
class WindowMover {
  public:
    enum class Outcome {
        /// All of them are on the Space now.
        moved,
        /// Nobody could be asked.
        refused,
        /// Not within a second.
        stayed,
    };
    /// Told once, unless the mover ends before.
    using Done = std::function<void(Outcome)>;

    WindowMover(Scheduler& scheduler, WindowServer& server)
        : scheduler_(scheduler)
        , server_(server) {}
    WindowMover(const WindowMover&) = delete;
    WindowMover& operator=(const WindowMover&) = delete;

    /// Whether windows can be moved here, as far as is known.
    bool canMove() const { return canMove_; }
    /// The windows must be on some Space now. `done` hears within about a second what became of it.
    void move(std::vector<WindowId> windows, SpaceId space, Done done);

  private:
    struct Move {
        std::vector<WindowId> windows;
        SpaceId space = 0;
        Done done;
        /// Uptime at which it is given up.
        double limit = 0;
        Handle timer;
    };

    void look(std::list<Move>::iterator move);
    bool haveArrived(const Move& move) const;
    bool areThere(const std::vector<WindowId>& windows) const;

    Scheduler& scheduler_;
    WindowServer& server_;
    bool canMove_ = true;
    bool hasMoved_ = false;
    std::list<Move> moves_;
};

} // namespace larkspan
