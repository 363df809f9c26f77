#include "platform/mac/MacApplicationControl.h"

#include "platform/mac/text.h"

#import <AppKit/AppKit.h>

#include <csignal>
#include <utility>

namespace larkspan::mac {

namespace {

/// Nil when no such process runs or it is none of an application; messages to it then answer NO.
NSRunningApplication* running(ProcessId pid) {
    return [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
}

} // namespace

MacApplicationControl::MacApplicationControl(std::function<void(const std::string&)> report)
    : report_(std::move(report)) {}

// The answer to either request comes later, on a thread of the workspace's.
bool MacApplicationControl::open(std::string_view url) {
    NSURL* place = url.starts_with('/') ? [NSURL fileURLWithPath:nsString(url)]
                                        : [NSURL URLWithString:nsString(url)];
    if (place == nil) return false;
    auto report = report_;
    const auto answered = ^(NSRunningApplication*, NSError* error) {
      if (error == nil) return;
      const std::string line = textOf(error.localizedDescription);
      dispatch_async(dispatch_get_main_queue(), ^{
        report(line);
      });
    };
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    if ([place.pathExtension isEqualToString:@"app"])
        [workspace openApplicationAtURL:place
                          configuration:configuration
                      completionHandler:answered];
    else
        [workspace openURL:place configuration:configuration completionHandler:answered];
    return true;
}

bool MacApplicationControl::activate(ProcessId pid) {
    return [running(pid) activateWithOptions:0] == YES;
}

bool MacApplicationControl::hide(ProcessId pid) {
    return [running(pid) hide] == YES;
}

bool MacApplicationControl::unhide(ProcessId pid) {
    return [running(pid) unhide] == YES;
}

bool MacApplicationControl::terminate(ProcessId pid) {
    return [running(pid) terminate] == YES;
}

bool MacApplicationControl::forceTerminate(ProcessId pid) {
    return [running(pid) forceTerminate] == YES;
}

// A number below 1 would mean a group of processes, and -1 all of them.
bool MacApplicationControl::sendSignal(ProcessId pid, int signal) {
    return pid > 0 && kill(pid, signal) == 0;
}

} // namespace larkspan::mac
