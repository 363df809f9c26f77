#pragma once

#include "adapters/freedesktop/FolderWatch.h"
#include "adapters/freedesktop/XdgFolders.h"
#include "platform/Signal.h"
#include "platform/TrashFolder.h"

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The Trash in the user's home; those on other volumes are not counted.
class FreedesktopTrash : public TrashFolder {
  public:
    /// `open` shows the folder with that path to the user.
    FreedesktopTrash(const Environment& environment, std::function<void(const std::string&)> open);

    std::optional<std::size_t> entryCount() const override;
    bool holdsDesktopServicesFile() const override;
    void open() override;
    bool announcesChanges() const override { return watch_.isWorking(); }
    Handle subscribe(std::function<void()> callback) override;

  private:
    std::string folder_;
    std::function<void(const std::string&)> open_;
    Signal<> changed_;
    FolderWatch watch_;
};

} // namespace larkspan::freedesktop
