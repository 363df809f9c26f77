#include "adapters/sim/SimEventTaps.h"

#include <utility>

namespace larkspan::sim {

namespace {

template <typename Value>
Value valueAt(const std::map<std::uint32_t, Value>& values, std::uint32_t field) {
    const auto found = values.find(field);
    return found == values.end() ? Value{} : found->second;
}

} // namespace

SimEvent& SimEvent::withInteger(std::uint32_t field, std::int64_t value) {
    integers_[field] = value;
    return *this;
}

SimEvent& SimEvent::withDouble(std::uint32_t field, double value) {
    doubles_[field] = value;
    return *this;
}

std::int64_t SimEvent::integerField(std::uint32_t field) const {
    return valueAt(integers_, field);
}

double SimEvent::doubleField(std::uint32_t field) const {
    return valueAt(doubles_, field);
}

struct SimEventTaps::State {
    std::uint64_t mask = 0;
    Callback callback;
    EventTap* tap = nullptr;
    bool isEnabled = true;
};

class SimEventTaps::Tap final : public EventTap {
  public:
    explicit Tap(std::shared_ptr<State> state)
        : state_(std::move(state)) {
        state_->tap = this;
    }
    void enable() override { state_->isEnabled = true; }

  private:
    std::shared_ptr<State> state_;
};

std::unique_ptr<EventTap> SimEventTaps::listen(std::uint64_t mask, Callback callback) {
    if (refuses) return nullptr;
    auto state = std::make_shared<State>();
    state->mask = mask;
    state->callback = std::move(callback);
    std::erase_if(taps_, [](const auto& tap) { return tap.expired(); });
    taps_.push_back(state);
    return std::make_unique<Tap>(std::move(state));
}

void SimEventTaps::deliver(const std::shared_ptr<State>& tap, const SimEvent& event) {
    scheduler_.queue("event tap").post([weak = std::weak_ptr(tap), event] {
        if (const auto state = weak.lock()) state->callback(*state->tap, event);
    });
}

void SimEventTaps::send(const SimEvent& event) {
    for (const auto& weak : taps_) {
        const auto tap = weak.lock();
        if (tap && tap->isEnabled && (tap->mask >> event.type() & 1) != 0) deliver(tap, event);
    }
}

void SimEventTaps::disable(std::uint32_t reason) {
    for (const auto& weak : taps_) {
        const auto tap = weak.lock();
        if (!tap || !tap->isEnabled) continue;
        tap->isEnabled = false;
        deliver(tap, SimEvent(reason));
    }
}

std::size_t SimEventTaps::count() const {
    std::size_t count = 0;
    for (const auto& tap : taps_)
        count += tap.expired() ? 0 : 1;
    return count;
}

} // namespace larkspan::sim
