#pragma once

#include <optional>

namespace larkspan::sim {

/// Counts the program's actions that outlive it — each stored setting, each change of the Dock,
/// each signal — and can kill the program before any of them: after that it has no effect on the
/// system any more.
class KillPoint {
  public:
    /// The program dies just before that action, counted from 0 starting now.
    void dieBefore(int action) { diesAt_ = actions_ + action; }
    void revive() { diesAt_.reset(); }

    /// Called before each action; returns false if the program is dead.
    bool mayAct() {
        if (isDead()) return false;
        ++actions_;
        return true;
    }
    bool isDead() const { return diesAt_ && actions_ >= *diesAt_; }
    /// The number of actions so far.
    int actions() const { return actions_; }

  private:
    int actions_ = 0;
    std::optional<int> diesAt_;
};

} // namespace larkspan::sim
