#pragma once

#include "adapters/freedesktop/FolderWatch.h"
#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/qt/WholeFile.h"
#include "platform/DockPreferences.h"
#include "platform/Signal.h"

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The list of pinned apps in a file of our own, `pinned.json`, in the shape the Dock's preferences
/// have. As long as there is no such file the list is the desktop's usual applications. Follows
/// what others write into the file. Main thread only.
class PinnedFile : public DockPreferences {
  public:
    /// `report` takes one line about a file that cannot be used.
    PinnedFile(std::string path, const DefaultApplications& defaults,
               std::function<void(const std::string&)> report);

    bool synchronize() override;
    std::optional<PropertyValue> copyAppValue(std::string_view key) const override;
    void setAppValue(std::string_view key, PropertyValue value) override;
    bool announcesChanges() const override;
    Handle subscribe(std::function<void()> callback) override;

  private:
    void load();
    void setAside();
    bool write();
    void folderChanged();
    PropertyValue::Array firstList() const;

    qt::WholeFile file_;
    const DefaultApplications& defaults_;
    std::function<void(const std::string&)> report_;
    Signal<> changed_;
    FolderWatch watch_;
    PropertyValue::Dictionary values_;
    /// What was set and is not in the file yet.
    PropertyValue::Dictionary unsaved_;
    /// The state of the file that `values_` was last read from or written to.
    std::string stamp_;
};

} // namespace larkspan::freedesktop
