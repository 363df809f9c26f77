#pragma once

#include "adapters/freedesktop/FolderWatch.h"
#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/qt/WholeFile.h"
#include "platform/DockPreferences.h"
#include "platform/Signal.h"

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The list of pinned apps in our own file `pinned.json`, in the format of the Dock's preferences.
/// Until that file exists, the list is the desktop's usual applications. Follows changes that other
/// programs make to the file. Main thread only.
class PinnedFile : public DockPreferences {
  public:
    /// `report` is called with one line for a file that cannot be used.
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
    /// Values that were set but are not in the file yet.
    PropertyValue::Dictionary unsaved_;
    /// The state of the file when `values_` was last read from it or written to it.
    std::string stamp_;
};

} // namespace larkspan::freedesktop
