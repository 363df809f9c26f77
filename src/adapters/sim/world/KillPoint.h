#pragma once

#include <optional>

namespace larkspan::sim {

/// Counts what the program does that outlives it — each stored setting, each change of the Dock,
/// each signal — and can end the program before any of them: from there on it does nothing more to
/// the system, as a killed process does not.
class KillPoint {
  public:
    /// The program dies just before it does the `deed`th thing from now, counted from 0.
    void dieBefore(int deed) { diesAt_ = deeds_ + deed; }
    void revive() { diesAt_.reset(); }

    /// Asked before each deed: whether the program still lives to do it.
    bool mayAct() {
        if (isDead()) return false;
        ++deeds_;
        return true;
    }
    bool isDead() const { return diesAt_ && deeds_ >= *diesAt_; }
    /// How much has been done so far.
    int deeds() const { return deeds_; }

  private:
    int deeds_ = 0;
    std::optional<int> diesAt_;
};

} // namespace larkspan::sim
