#pragma once

#include "platform/Accessibility.h"

#include <functional>
#include <string>
#include <utility>

namespace larkspan {

/// Passes everything on to another Accessibility, and lets a test look at each read before it is
/// made, or make a fault happen in the middle of one operation.
class WatchedAccessibility final : public Accessibility {
  public:
    explicit WatchedAccessibility(Accessibility& real)
        : real_(real) {}

    /// Called before each read of an attribute, with its name.
    std::function<void(const std::string&)> onRead = [](const std::string&) {};
    mutable int reads = 0;
    mutable int tokens = 0;

    bool isProcessTrusted() const override { return real_.isProcessTrusted(); }
    bool requestTrust() override { return real_.requestTrust(); }
    AXElementRef createSystemWide() const override { return real_.createSystemWide(); }
    AXElementRef createApplication(ProcessId pid) const override {
        return real_.createApplication(pid);
    }
    AXElementRef createWithRemoteToken(const RemoteToken& token) const override {
        ++tokens;
        return real_.createWithRemoteToken(token);
    }
    AXError setMessagingTimeout(const AXElementRef& element, float seconds) const override {
        return real_.setMessagingTimeout(element, seconds);
    }
    AXAttribute attribute(const AXElementRef& element, std::string_view name) const override {
        ++reads;
        onRead(std::string(name));
        return real_.attribute(element, name);
    }
    AXError setAttribute(const AXElementRef& element, std::string_view name,
                         const AXValue& value) const override {
        return real_.setAttribute(element, name, value);
    }
    AXError performAction(const AXElementRef& element, std::string_view action) const override {
        return real_.performAction(element, action);
    }
    std::optional<ProcessId> pid(const AXElementRef& element) const override {
        return real_.pid(element);
    }
    std::optional<WindowId> window(const AXElementRef& element) const override {
        return real_.window(element);
    }
    Handle observe(const AXElementRef& element, std::string_view notification,
                   std::function<void()> callback) const override {
        return real_.observe(element, notification, std::move(callback));
    }

  private:
    Accessibility& real_;
};

} // namespace larkspan
