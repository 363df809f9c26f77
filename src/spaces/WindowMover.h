#pragma once

#include "platform/Scheduler.h"
#include "platform/WindowServer.h"

#include <functional>
#include <list>
#include <vector>

namespace larkspan {

/// Moves windows to another Space, and checks whether they moved: newer systems accept the request
/// and ignore it. After the first such case there are no more requests, unless a window has moved
/// before. Main thread only.
class WindowMover {
  public:
    enum class Outcome {
        /// All of them are on the Space now.
        moved,
        /// The request could not be sent.
        refused,
        /// Not within a second.
        stayed,
    };
    /// Called once, unless the mover is destroyed first.
    using Done = std::function<void(Outcome)>;

    WindowMover(Scheduler& scheduler, WindowServer& server)
        : scheduler_(scheduler)
        , server_(server) {}
    WindowMover(const WindowMover&) = delete;
    WindowMover& operator=(const WindowMover&) = delete;

    /// Whether windows can be moved here, as far as is known.
    bool canMove() const { return canMove_; }
    /// The windows must be on some Space now. `done` is called within about a second with the
    /// outcome.
    void move(std::vector<WindowId> windows, SpaceId space, Done done);

  private:
    struct Move {
        std::vector<WindowId> windows;
        SpaceId space = 0;
        Done done;
        /// The uptime at which the move is given up.
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
