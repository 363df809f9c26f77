#pragma once

#include "platform/Signal.h"
#include "platform/TrashFolder.h"

#import <Foundation/Foundation.h>

namespace larkspan::mac {

/// The folder ".Trash" in the user's home; those on other volumes are not counted. Only programs
/// with Full Disk Access may read it: without, the count is absent and nothing is announced.
class MacTrash final : public TrashFolder {
  public:
    MacTrash();
    ~MacTrash() override;
    MacTrash(const MacTrash&) = delete;
    MacTrash& operator=(const MacTrash&) = delete;

    std::optional<std::size_t> entryCount() const override;
    bool holdsDesktopServicesFile() const override;
    void open() override;
    bool announcesChanges() const override { return watch_ != nil; }
    Handle subscribe(std::function<void()> callback) override {
        return changed_.subscribe(std::move(callback));
    }

  private:
    NSString* folder_;
    dispatch_source_t watch_;
    Signal<> changed_;
};

} // namespace larkspan::mac
