#pragma once

#include "adapters/x11/windows/ClientWindow.h"
#include "platform/Screens.h"

#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace larkspan::x11 {

/// The desktop at one moment. Immutable once published, so any thread may read it.
struct DesktopSnapshot {
    /// Front to back.
    std::vector<ClientWindowRef> windows;
    std::vector<Screen> screens;
    WindowId activeWindow = 0;
    std::uint32_t currentDesktop = 0;
    std::uint32_t desktopCount = 1;

    /// nullptr if there is no such window.
    ClientWindowRef find(WindowId window) const;
    /// Front to back.
    std::vector<ClientWindowRef> windowsOf(ProcessId owner) const;
    /// The display that shows most of the window; the main one for a window that is on none.
    DisplayId displayOf(const ClientWindow& window) const;

  private:
    void makeIndex() const;

    // Made on demand: most snapshots are replaced before a single window is looked up.
    mutable std::once_flag indexMade_;
    mutable std::unordered_map<WindowId, ClientWindowRef> byNumber_;
    mutable std::unordered_map<ProcessId, std::vector<ClientWindowRef>> byOwner_;
};

using DesktopSnapshotRef = std::shared_ptr<const DesktopSnapshot>;

/// Holds the newest snapshot for its readers. Any thread.
class SnapshotBoard {
  public:
    DesktopSnapshotRef newest() const {
        const std::lock_guard lock(mutex_);
        return snapshot_;
    }
    void post(DesktopSnapshotRef snapshot) {
        const std::lock_guard lock(mutex_);
        // The old one is destroyed with the argument, after the lock is released.
        std::swap(snapshot_, snapshot);
    }

  private:
    mutable std::mutex mutex_;
    DesktopSnapshotRef snapshot_ = std::make_shared<const DesktopSnapshot>();
};

} // namespace larkspan::x11
