#pragma once

#include "adapters/mac/PrivateFunctions.h"
#include "platform/Accessibility.h"

namespace larkspan::mac {

/// The Accessibility interface, call by call.
class MacAccessibility final : public Accessibility {
  public:
    explicit MacAccessibility(const PrivateFunctions& functions)
        : functions_(functions) {}

    bool isProcessTrusted() const override;
    bool requestTrust() override;

    AXElementRef createSystemWide() const override;
    AXElementRef createApplication(ProcessId pid) const override;
    AXElementRef createWithRemoteToken(const RemoteToken& token) const override;

    AXError setMessagingTimeout(const AXElementRef& element, float seconds) const override;
    AXAttribute attribute(const AXElementRef& element, std::string_view name) const override;
    AXError setAttribute(const AXElementRef& element, std::string_view name,
                         const AXValue& value) const override;
    AXError performAction(const AXElementRef& element, std::string_view action) const override;
    std::optional<ProcessId> pid(const AXElementRef& element) const override;
    std::optional<WindowId> window(const AXElementRef& element) const override;
    Handle observe(const AXElementRef& element, std::string_view notification,
                   std::function<void()> callback) const override;

  private:
    const PrivateFunctions& functions_;
};

} // namespace larkspan::mac
