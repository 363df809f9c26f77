#include "adapters/mac/MacEventTaps.h"

#import <ApplicationServices/ApplicationServices.h>

#include <future>
#include <thread>
#include <utility>

namespace larkspan::mac {

namespace {

/// When the system reports a disabled tap, there is no event.
class MacTappedEvent final : public TappedEvent {
  public:
    MacTappedEvent(CGEventType type, CGEventRef event)
        : type_(type)
        , event_(event) {}

    std::uint32_t type() const override { return type_; }
    std::int64_t integerField(std::uint32_t field) const override {
        return event_ ? CGEventGetIntegerValueField(event_, static_cast<CGEventField>(field)) : 0;
    }
    double doubleField(std::uint32_t field) const override {
        return event_ ? CGEventGetDoubleValueField(event_, static_cast<CGEventField>(field)) : 0;
    }

  private:
    CGEventType type_;
    CGEventRef event_;
};

class MacEventTap final : public EventTap {
  public:
    explicit MacEventTap(EventTaps::Callback callback)
        : callback_(std::move(callback)) {}
    ~MacEventTap() override;

    /// Returns false if the system refuses.
    bool start(CGEventMask mask);
    void enable() override { CGEventTapEnable(port_, true); }

  private:
    static CGEventRef pass(CGEventTapProxy, CGEventType type, CGEventRef event, void* tap);
    void run(std::promise<CFRunLoopRef> started);

    EventTaps::Callback callback_;
    CFMachPortRef port_ = nullptr;
    CFRunLoopRef loop_ = nullptr;
    std::thread thread_;
};

bool MacEventTap::start(CGEventMask mask) {
    port_ = CGEventTapCreate(kCGSessionEventTap, kCGTailAppendEventTap, kCGEventTapOptionListenOnly,
                             mask, pass, this);
    if (!port_) return false;
    std::promise<CFRunLoopRef> started;
    auto loop = started.get_future();
    thread_ =
        std::thread([this, promise = std::move(started)]() mutable { run(std::move(promise)); });
    loop_ = loop.get();
    return true;
}

void MacEventTap::run(std::promise<CFRunLoopRef> started) {
    CFRunLoopRef loop = CFRunLoopGetCurrent();
    CFRunLoopSourceRef source = CFMachPortCreateRunLoopSource(nullptr, port_, 0);
    CFRunLoopAddSource(loop, source, kCFRunLoopCommonModes);
    CFRelease(source);
    CGEventTapEnable(port_, true);
    started.set_value(loop);
    CFRunLoopRun();
}

// Stopped from inside the loop: a stop before it runs would have no effect.
MacEventTap::~MacEventTap() {
    if (!port_) return;
    CGEventTapEnable(port_, false);
    CFRunLoopPerformBlock(loop_, kCFRunLoopDefaultMode, ^{
      CFRunLoopStop(CFRunLoopGetCurrent());
    });
    CFRunLoopWakeUp(loop_);
    thread_.join();
    CFMachPortInvalidate(port_);
    CFRelease(port_);
}

CGEventRef MacEventTap::pass(CGEventTapProxy, CGEventType type, CGEventRef event, void* context) {
    auto& tap = *static_cast<MacEventTap*>(context);
    @autoreleasepool {
        tap.callback_(tap, MacTappedEvent(type, event));
    }
    return event;
}

} // namespace

std::unique_ptr<EventTap> MacEventTaps::listen(std::uint64_t mask, Callback callback) {
    auto tap = std::make_unique<MacEventTap>(std::move(callback));
    if (!tap->start(mask)) return nullptr;
    return tap;
}

} // namespace larkspan::mac
