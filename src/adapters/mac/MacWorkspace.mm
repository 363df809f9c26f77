#include "adapters/mac/MacWorkspace.h"

#include "adapters/mac/MacImage.h"
#include "adapters/mac/text.h"

#include <fmt/format.h>

#include <cerrno>
#include <csignal>
#include <functional>
#include <utility>

/// Reports every change of the list of running applications until it is stopped.
@interface LarkspanWorkspaceObserver : NSObject
- (instancetype)initWithScheduler:(larkspan::Scheduler*)scheduler
                          changed:(std::function<void()>)changed;
- (void)stop;
@end

@implementation LarkspanWorkspaceObserver {
    larkspan::Scheduler* _scheduler;
    std::function<void()> _changed;
}

- (instancetype)initWithScheduler:(larkspan::Scheduler*)scheduler
                          changed:(std::function<void()>)changed {
    self = [super init];
    if (self != nil) {
        _scheduler = scheduler;
        _changed = std::move(changed);
        [NSWorkspace.sharedWorkspace addObserver:self
                                      forKeyPath:@"runningApplications"
                                         options:0
                                         context:nullptr];
    }
    return self;
}

- (void)stop {
    [NSWorkspace.sharedWorkspace removeObserver:self forKeyPath:@"runningApplications"];
    _changed = nullptr;
}

// May be called on any thread, also during one of our calls into the workspace.
- (void)observeValueForKeyPath:(NSString*)__unused keyPath
                      ofObject:(id)__unused object
                        change:(NSDictionary<NSKeyValueChangeKey, id>*)__unused change
                       context:(void*)__unused context {
    __weak LarkspanWorkspaceObserver* weakSelf = self;
    _scheduler->post([weakSelf] {
        LarkspanWorkspaceObserver* observer = weakSelf;
        if (observer != nil && observer->_changed) observer->_changed();
    });
}

@end

/// The class is in a framework that AppKit loads; only this method is needed.
@protocol LarkspanContentType
+ (id)typeWithIdentifier:(NSString*)identifier;
@end

namespace larkspan::mac {

namespace {

std::optional<std::string> optionalText(NSString* string) {
    if (string == nil) return std::nullopt;
    return textOf(string);
}

} // namespace

MacWorkspace::MacWorkspace(Scheduler& scheduler) {
    using Kind = WorkspaceEvent::Kind;
    announce(NSWorkspaceDidLaunchApplicationNotification, Kind::didLaunchApplication);
    announce(NSWorkspaceDidTerminateApplicationNotification, Kind::didTerminateApplication);
    announce(NSWorkspaceDidHideApplicationNotification, Kind::didHideApplication);
    announce(NSWorkspaceDidUnhideApplicationNotification, Kind::didUnhideApplication);
    announce(NSWorkspaceDidActivateApplicationNotification, Kind::didActivateApplication);
    announce(NSWorkspaceActiveSpaceDidChangeNotification, Kind::activeSpaceDidChange);
    listObserver_ = [[LarkspanWorkspaceObserver alloc]
        initWithScheduler:&scheduler
                  changed:[this] {
                      events_.emit({Kind::runningApplicationsDidChange, std::nullopt});
                  }];
}

MacWorkspace::~MacWorkspace() {
    [listObserver_ stop];
}

void MacWorkspace::announce(NSNotificationName name, WorkspaceEvent::Kind kind) {
    // The workspace uses its own notification center, not the default one.
    NSNotificationCenter* center = NSWorkspace.sharedWorkspace.notificationCenter;
    const id token = [center addObserverForName:name
                                         object:nil
                                          queue:NSOperationQueue.mainQueue
                                     usingBlock:^(NSNotification* notification) {
                                       NSRunningApplication* application =
                                           notification.userInfo[NSWorkspaceApplicationKey];
                                       WorkspaceEvent event{kind, std::nullopt};
                                       if (application != nil)
                                           event.application = valueOf(application);
                                       events_.emit(event);
                                     }];
    observations_.emplace_back([center, token] { [center removeObserver:token]; });
}

RunningApplication MacWorkspace::valueOf(NSRunningApplication* application) const {
    return {.pid = application.processIdentifier,
            .bundleIdentifier = optionalText(application.bundleIdentifier),
            .bundleURL = optionalText(application.bundleURL.path),
            .localizedName = textOf(application.localizedName),
            .activationPolicy = static_cast<ActivationPolicy>(application.activationPolicy),
            .isFinishedLaunching = application.finishedLaunching == YES,
            .isHidden = application.hidden == YES,
            .isActive = application.active == YES,
            .isTerminated = application.terminated == YES,
            .icon = iconOf(application)};
}

ImageRef MacWorkspace::iconOf(NSRunningApplication* application) const {
    const ProcessId pid = application.processIdentifier;
    if (pid < 1) return nullptr;
    KnownIcon& known = icons_[pid];
    // The process identifier may have been reused by another application.
    if (known.application != nil && [known.application isEqual:application]) return known.icon;
    NSImage* picture = application.icon;
    known = {application, nullptr};
    if (picture != nil) {
        const double launched = application.launchDate.timeIntervalSinceReferenceDate;
        known.icon =
            std::make_shared<MacImage>(fmt::format("process:{}:{}", pid, launched), picture);
    }
    return known.icon;
}

void MacWorkspace::forgetIcons(NSArray<NSRunningApplication*>* running) const {
    if (icons_.size() <= running.count) return;
    std::erase_if(icons_, [](const auto& entry) { return entry.second.application.terminated; });
}

std::vector<RunningApplication> MacWorkspace::runningApplications() const {
    std::vector<RunningApplication> values;
    @autoreleasepool {
        NSArray<NSRunningApplication*>* running = NSWorkspace.sharedWorkspace.runningApplications;
        forgetIcons(running);
        values.reserve(running.count);
        for (NSRunningApplication* application in running)
            values.push_back(valueOf(application));
    }
    return values;
}

std::optional<RunningApplication> MacWorkspace::frontmostApplication() const {
    NSRunningApplication* application = NSWorkspace.sharedWorkspace.frontmostApplication;
    if (application == nil) return std::nullopt;
    return valueOf(application);
}

// The list of running applications has only processes that registered as applications.
bool MacWorkspace::hasProcess(ProcessId pid) const {
    return pid > 0 && (kill(pid, 0) == 0 || errno == EPERM);
}

std::optional<std::string>
MacWorkspace::urlForApplication(std::string_view bundleIdentifier) const {
    NSURL* url = [NSWorkspace.sharedWorkspace
        URLForApplicationWithBundleIdentifier:nsString(bundleIdentifier)];
    return optionalText(url.path);
}

std::string MacWorkspace::displayName(std::string_view url) const {
    return textOf([NSFileManager.defaultManager displayNameAtPath:nsString(url)]);
}

ImageRef MacWorkspace::icon(std::string_view url) const {
    return std::make_shared<MacImage>(fmt::format("file:{}", url),
                                      [NSWorkspace.sharedWorkspace iconForFile:nsString(url)]);
}

ImageRef MacWorkspace::genericApplicationIcon() const {
    Class<LarkspanContentType> contentType = NSClassFromString(@"UTType");
    const id application = [contentType typeWithIdentifier:@"com.apple.application-bundle"];
    NSImage* picture = application != nil
                           ? [NSWorkspace.sharedWorkspace iconForContentType:application]
                           : [NSImage imageNamed:NSImageNameApplicationIcon];
    return std::make_shared<MacImage>("generic-application", picture);
}

} // namespace larkspan::mac
