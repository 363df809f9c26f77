#pragma once

#include "platform/Handle.h"

#include <functional>
#include <string>
#include <vector>

namespace larkspan {

/// What a running app wants to be shown on its tile.
struct AppNotice {
    std::string bundleIdentifier;
    /// A short text, such as the number of unread messages; empty for none.
    std::string badge;
    bool wantsAttention = false;

    bool operator==(const AppNotice&) const = default;
};

/// What apps want to be shown on their tiles, on a desktop that tells of it. On a Mac only the
/// system Dock knows, and this class itself stands for that: it has nothing to tell. Main thread
/// only.
class AppNotices {
  public:
    virtual ~AppNotices() = default;
    /// Whether `notices` are known, and every change of them is told to subscribers.
    virtual bool announcesChanges() const { return false; }
    /// At most one for each app; apps without a badge or a wish may be left out.
    virtual std::vector<AppNotice> notices() const { return {}; }
    virtual Handle subscribe(std::function<void()>) { return {}; }
};

} // namespace larkspan
