#pragma once

#include "platform/Handle.h"

#include <functional>
#include <string>
#include <vector>

namespace larkspan {

/// What a running app wants its tile to show.
struct AppNotice {
    std::string bundleIdentifier;
    /// A short text, such as the number of unread messages; empty for none.
    std::string badge;
    bool wantsAttention = false;

    bool operator==(const AppNotice&) const = default;
};

/// What apps want their tiles to show, on a desktop that publishes it. On a Mac only the system
/// Dock knows; this class itself is used there, and has no notices. Main thread only.
class AppNotices {
  public:
    virtual ~AppNotices() = default;
    /// Whether `notices` are known, and every change of them is announced to subscribers.
    virtual bool announcesChanges() const { return false; }
    /// At most one for each app; apps without a badge or a request for attention may be omitted.
    virtual std::vector<AppNotice> notices() const { return {}; }
    virtual Handle subscribe(std::function<void()>) { return {}; }
};

} // namespace larkspan
