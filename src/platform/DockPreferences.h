#pragma once

#include "platform/Handle.h"
#include "platform/PropertyValue.h"

#include <functional>
#include <optional>
#include <string_view>

namespace larkspan {

/// The preferences domain of the Dock, "com.apple.dock". On a desktop without a system Dock it is
/// our own file, which holds the list of pinned apps in the same format. Main thread only.
class DockPreferences {
  public:
    virtual ~DockPreferences() = default;
    /// Writes the keys that were set, and only those, and discards cached values, so that the next
    /// read returns the Dock's own changes. Returns false if it could not be written.
    virtual bool synchronize() = 0;
    virtual std::optional<PropertyValue> copyAppValue(std::string_view key) const = 0;
    virtual void setAppValue(std::string_view key, PropertyValue value) = 0;
    /// Whether every change made outside this program is announced to subscribers, so that nothing
    /// needs to be polled.
    virtual bool announcesChanges() const { return false; }
    virtual Handle subscribe(std::function<void()>) { return {}; }
};

} // namespace larkspan
