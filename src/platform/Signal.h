#pragma once

#include "platform/Handle.h"

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace larkspan {

/// Tells every subscriber, in the order they came. A subscriber ends with its handle, which may
/// happen while the signal is being emitted and may outlive the signal. One thread only.
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
        // A copy: subscribers may come and go while they are told. One that left is an empty
        // callback.
        const auto entries = *entries_;
        for (const auto& entry : entries) {
            // Kept alive by a copy too, since a callback may end its own subscription.
            if (const Callback callback = *entry) callback(arguments...);
        }
    }

    bool hasSubscribers() const { return !entries_->empty(); }

  private:
    using Entries = std::vector<std::shared_ptr<Callback>>;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
};

} // namespace larkspan
