#pragma once

#include "platform/Screens.h"
#include "platform/x11/ClientWindow.h"

#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace larkspan::x11 {

/// The desktop at one moment. Immutable, so that any thread may keep reading it.
struct DesktopSnapshot {
    /// Front to back.
    std::vector<ClientWindowRef> windows;
    std::vector<Screen> screens;
    WindowId activeWindow = 0;
    std::uint32_t currentDesktop = 0;
    std::uint32_t desktopCount = 1;
};

using DesktopSnapshotRef = std::shared_ptr<const DesktopSnapshot>;

/// Where the newest snapshot is left for the readers. Any thread.
class SnapshotBoard {
  public:
    DesktopSnapshotRef newest() const {
        const std::lock_guard lock(mutex_);
        return snapshot_;
    }
    void post(DesktopSnapshot snapshot) {
        auto newer = std::make_shared<const DesktopSnapshot>(std::move(snapshot));
        const std::lock_guard lock(mutex_);
        // The older one ends outside of the lock, with `newer`.
        std::swap(snapshot_, newer);
    }

  private:
    mutable std::mutex mutex_;
    DesktopSnapshotRef snapshot_ = std::make_shared<const DesktopSnapshot>();
};

} // namespace larkspan::x11
