#include "spaces/WindowMover.h"

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

/// Seconds.
constexpr double lookInterval = 0.1;
constexpr double patience = 1.0;

bool holds(const std::vector<WindowId>& numbers, const std::vector<WindowId>& windows) {
    return std::ranges::all_of(windows, [&](WindowId window) {
        return std::ranges::find(numbers, window) != numbers.end();
    });
}

} // namespace

void WindowMover::move(std::vector<WindowId> windows, SpaceId space, Done done) {
    if (!canMove_ || !server_.moveWindows(windows, space)) {
        done(Outcome::refused);
        return;
    }
    moves_.push_back(
        {std::move(windows), space, std::move(done), scheduler_.uptime() + patience, Handle{}});
    const auto added = std::prev(moves_.end());
    added->timer = scheduler_.every(lookInterval, [this, added] { look(added); });
}

void WindowMover::look(std::list<Move>::iterator move) {
    const bool isMoved = haveArrived(*move);
    if (!isMoved && scheduler_.uptime() < move->limit) return;
    // If a window was closed in the meantime, this does not show whether the system supports moves.
    if (!isMoved && !hasMoved_ && areThere(move->windows)) canMove_ = false;
    hasMoved_ = hasMoved_ || isMoved;
    const Move ended = std::move(*move);
    moves_.erase(move);
    ended.done(isMoved ? Outcome::moved : Outcome::stayed);
}

bool WindowMover::haveArrived(const Move& move) const {
    const auto numbers = server_.windowsOfSpace(move.space);
    return numbers && holds(*numbers, move.windows);
}

bool WindowMover::areThere(const std::vector<WindowId>& windows) const {
    const auto list = server_.windowList(WindowListOption::all);
    if (!list) return false;
    std::vector<WindowId> numbers;
    for (const auto& entry : *list)
        numbers.push_back(entry.number.value_or(0));
    return holds(numbers, windows);
}

} // namespace larkspan
