#include "adapters/mac/MacTrash.h"

#import <AppKit/AppKit.h>

#include <fcntl.h>
#include <unistd.h>

namespace larkspan::mac {

MacTrash::MacTrash()
    : folder_([NSHomeDirectory() stringByAppendingPathComponent:@".Trash"])
    , watch_(nil) {
    const int folder = ::open(folder_.fileSystemRepresentation, O_EVTONLY | O_CLOEXEC);
    if (folder < 0) return;
    watch_ = dispatch_source_create(DISPATCH_SOURCE_TYPE_VNODE, static_cast<uintptr_t>(folder),
                                    DISPATCH_VNODE_WRITE, dispatch_get_main_queue());
    if (watch_ == nil) {
        close(folder);
        return;
    }
    dispatch_source_set_event_handler(watch_, ^{
      changed_.emit();
    });
    dispatch_source_set_cancel_handler(watch_, ^{
      close(folder);
    });
    dispatch_resume(watch_);
}

MacTrash::~MacTrash() {
    if (watch_ != nil) dispatch_source_cancel(watch_);
}

std::optional<std::size_t> MacTrash::entryCount() const {
    NSArray<NSString*>* entries = [NSFileManager.defaultManager contentsOfDirectoryAtPath:folder_
                                                                                    error:nil];
    if (entries == nil) return std::nullopt;
    return entries.count;
}

bool MacTrash::holdsDesktopServicesFile() const {
    NSString* file = [folder_ stringByAppendingPathComponent:@".DS_Store"];
    return [NSFileManager.defaultManager fileExistsAtPath:file] == YES;
}

void MacTrash::open() {
    [NSWorkspace.sharedWorkspace openURL:[NSURL fileURLWithPath:folder_ isDirectory:YES]];
}

} // namespace larkspan::mac
