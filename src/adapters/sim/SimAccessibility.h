#pragma once

#include "adapters/sim/world/Applications.h"
#include "adapters/sim/world/WindowNotifications.h"
#include "platform/Accessibility.h"

namespace larkspan::sim {

struct DockTile;

/// Handles calls to every app. A call takes as long as the app takes to reply; one to a hung app
/// takes the whole messaging time-out.
class SimAccessibility final : public Accessibility {
  public:
    SimAccessibility(World& world, Applications& applications, Windows& windows)
        : world_(world)
        , applications_(applications)
        , windows_(windows) {}

    bool isProcessTrusted() const override { return world_.trustedForAccessibility; }
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

    /// How often the program asked for trust.
    int trustRequests() const { return trustRequests_; }

  private:
    struct Element;
    static const Element& of(const AXElementRef& element);
    AXError call(const Element& element) const;
    std::vector<AXElementRef> windowElements(ProcessId pid) const;
    AXAttribute systemAttribute(std::string_view name) const;
    AXAttribute applicationAttribute(const App& app, std::string_view name) const;
    AXAttribute dockListAttribute(const Element& list, std::string_view name) const;
    static AXAttribute dockTileAttribute(const DockTile& tile, std::string_view name);
    AXAttribute windowAttribute(const Element& element, std::string_view name) const;
    AXAttribute windowButton(const Element& element, std::string_view name) const;
    AXError setWindowAttribute(const Window& window, std::string_view name,
                               const AXValue& value) const;
    AXError setApplicationAttribute(const App& app, std::string_view name,
                                    const AXValue& value) const;
    void makeMain(WindowId window) const;

    World& world_;
    Applications& applications_;
    Windows& windows_;
    mutable WindowNotifications notifications_{world_, windows_};
    mutable double systemTimeout_ = 0;
    int trustRequests_ = 0;
};

} // namespace larkspan::sim
