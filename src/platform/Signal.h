#pragma once

#include "platform/Handle.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace larkspan {

/// Calls every subscriber, in the order of their subscription. A subscription ends with its handle,
/// which may happen while the signal is being emitted; the handle may outlive the signal. One
/// thread only.
template <typename... Arguments>
class Signal {
  public:
    using Callback = std::function<void(Arguments...)>;

    [[nodiscard]] Handle subscribe(Callback callback) const {
        auto entry = std::make_shared<Callback>(std::move(callback));
        entries_->push_back(entry);
        return Handle([weak = std::weak_ptr(entries_), entry] {
            *entry = nullptr;
            if (auto entries = weak.lock()) std::erase(*entries, entry);
        });
    }

    void emit(Arguments... arguments) const {
        // A copy: subscriptions may start and end during the calls. One that has ended is an empty
        // callback.
        const auto entries = *entries_;
        for (const auto& entry : entries) {
            // A copy too, since a callback may end its own subscription.
            if (const Callback callback = *entry) callback(arguments...);
        }
    }

    bool hasSubscribers() const { return !entries_->empty(); }

  private:
    using Entries = std::vector<std::shared_ptr<Callback>>;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

} // namespace larkspan
