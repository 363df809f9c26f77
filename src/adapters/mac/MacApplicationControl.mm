#include "adapters/mac/MacApplicationControl.h"

#include "adapters/mac/text.h"

#import <AppKit/AppKit.h>

#include <csignal>
#include <utility>

namespace larkspan::mac {

namespace {

/// Nil if there is no such process or it is not an application; messages to nil return NO.
NSRunningApplication* running(ProcessId pid) {
    return [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
}

using Report = std::function<void(const std::string&)>;

/// Nil for an invalid URL.
NSURL* placeOf(std::string_view url) {
    return url.starts_with('/') ? [NSURL fileURLWithPath:nsString(url)]
                                : [NSURL URLWithString:nsString(url)];
}

/// The completion handler of a request, which the workspace calls on its own thread.
void (^answer(const Report& report))(NSRunningApplication*, NSError*) {
    const Report kept = report;
    return ^(NSRunningApplication*, NSError* error) {
      if (error == nil) return;
      const std::string line = textOf(error.localizedDescription);
      dispatch_async(dispatch_get_main_queue(), ^{
        kept(line);
      });
    };
}

} // namespace

MacApplicationControl::MacApplicationControl(std::function<void(const std::string&)> report)
    : report_(std::move(report)) {}

bool MacApplicationControl::open(std::string_view url) {
    NSURL* place = placeOf(url);
    if (place == nil) return false;
    NSWorkspace* workspace = NSWorkspace.sharedWorkspace;
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    if ([place.pathExtension isEqualToString:@"app"])
        [workspace openApplicationAtURL:place
                          configuration:configuration
                      completionHandler:answer(report_)];
    else
        [workspace openURL:place configuration:configuration completionHandler:answer(report_)];
    return true;
}

bool MacApplicationControl::openWith(const std::vector<std::string>& urls,
                                     std::string_view application) {
    NSMutableArray<NSURL*>* places = [NSMutableArray array];
    for (const auto& url : urls)
        if (NSURL* place = placeOf(url)) [places addObject:place];
    if (places.count == 0) return false;
    [NSWorkspace.sharedWorkspace openURLs:places
                     withApplicationAtURL:[NSURL fileURLWithPath:nsString(application)]
                            configuration:[NSWorkspaceOpenConfiguration configuration]
                        completionHandler:answer(report_)];
    return true;
}

bool MacApplicationControl::openNewInstance(std::string_view application) {
    NSWorkspaceOpenConfiguration* configuration = [NSWorkspaceOpenConfiguration configuration];
    configuration.createsNewApplicationInstance = YES;
    [NSWorkspace.sharedWorkspace openApplicationAtURL:[NSURL fileURLWithPath:nsString(application)]
                                        configuration:configuration
                                    completionHandler:answer(report_)];
    return true;
}

bool MacApplicationControl::reveal(std::string_view url) {
    [NSWorkspace.sharedWorkspace
        activateFileViewerSelectingURLs:@[ [NSURL fileURLWithPath:nsString(url)] ]];
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

// A number below 1 would be a process group, and -1 all processes.
bool MacApplicationControl::sendSignal(ProcessId pid, int signal) {
    return pid > 0 && kill(pid, signal) == 0;
}

} // namespace larkspan::mac
