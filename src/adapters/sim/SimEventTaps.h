#pragma once

#include "adapters/sim/VirtualScheduler.h"
#include "platform/EventTap.h"

#include <map>
#include <memory>
#include <vector>

namespace larkspan::sim {

/// A raw event of the simulated Mac.
class SimEvent final : public TappedEvent {
  public:
    explicit SimEvent(std::uint32_t type)
        : type_(type) {}

    SimEvent& withInteger(std::uint32_t field, std::int64_t value);
    SimEvent& withDouble(std::uint32_t field, double value);

    std::uint32_t type() const override { return type_; }
    std::int64_t integerField(std::uint32_t field) const override;
    double doubleField(std::uint32_t field) const override;

  private:
    std::uint32_t type_;
    std::map<std::uint32_t, std::int64_t> integers_;
    std::map<std::uint32_t, double> doubles_;
};

/// Delivers raw input events. Each tap is called in separate turns, off the main thread.
class SimEventTaps final : public EventTaps {
  public:
    explicit SimEventTaps(VirtualScheduler& scheduler)
        : scheduler_(scheduler) {}

    std::unique_ptr<EventTap> listen(std::uint64_t mask, Callback callback) override;

    /// Sends the event to every enabled tap that listens to its type.
    void send(const SimEvent& event);
    /// Disables all taps and notifies them, with one of the reasons of `TapEvent`.
    void disable(std::uint32_t reason);

    /// Whether the system refuses to create a tap, as without the permission.
    bool refuses = false;
    std::size_t count() const;

  private:
    class Tap;
    struct State;
    void deliver(const std::shared_ptr<State>& tap, const SimEvent& event);

    VirtualScheduler& scheduler_;
    std::vector<std::weak_ptr<State>> taps_;
};

} // namespace larkspan::sim
