#pragma once

#include "platform/Handle.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// Calls back when something in one of its folders was added, removed, renamed or finished being
/// written. A folder that does not exist yet is noticed when it appears. Main thread only; without
/// inotify it never calls.
class FolderWatch {
  public:
    explicit FolderWatch(std::function<void()> changed);
    ~FolderWatch();
    FolderWatch(const FolderWatch&) = delete;
    FolderWatch& operator=(const FolderWatch&) = delete;

    /// Adds a folder, by its absolute path without a trailing slash.
    void add(const std::string& folder);
    /// Whether changes are reported at all.
    bool isWorking() const { return descriptor_ >= 0; }

  private:
    bool arm(const std::string& folder);
    bool isArmed(const std::string& folder) const;
    void readEvents();
    void forgetParents();
    bool take(int watch, std::uint32_t mask);

    std::function<void()> changed_;
    int descriptor_ = -1;
    Handle readable_;
    std::vector<std::string> folders_;
    /// For each watch, the watched folder: a wanted one, or its nearest parent that exists.
    std::map<int, std::string> watches_;
};

} // namespace larkspan::freedesktop
