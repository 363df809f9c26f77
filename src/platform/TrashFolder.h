#pragma once

#include "platform/Handle.h"

#include <cstddef>
#include <functional>
#include <optional>

namespace larkspan {

/// The user's Trash folder. Main thread only.
class TrashFolder {
  public:
    virtual ~TrashFolder() = default;
    /// The number of entries in the folder, with hidden ones; absent if it cannot be read.
    virtual std::optional<std::size_t> entryCount() const = 0;
    virtual bool holdsDesktopServicesFile() const = 0;
    /// Shows the folder to the user.
    virtual void open() = 0;
    /// Whether every change is announced to subscribers, so that nothing needs to be polled.
    virtual bool announcesChanges() const = 0;
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
