#pragma once

#include "adapters/sim/world/World.h"
#include "platform/DockPreferences.h"

#include <map>

namespace larkspan::sim {

/// The domain "com.apple.dock" as one program sees it: values that it has read do not change, and
/// values that it has set are not stored, until it synchronises.
class SimDockPreferences final : public DockPreferences {
  public:
    explicit SimDockPreferences(World& world)
        : world_(world) {}

    bool synchronize() override;
    std::optional<PropertyValue> copyAppValue(std::string_view key) const override;
    void setAppValue(std::string_view key, PropertyValue value) override;
    bool announcesChanges() const override { return world_.announcesChanges; }
    Handle subscribe(std::function<void()> callback) override;

    /// As after a kill of the program: values that were set and not synchronised are lost.
    void loseUnsynchronized() { set_.clear(); }

  private:
    World& world_;
    std::map<std::string, PropertyValue, std::less<>> set_;
    mutable std::optional<PropertyValue::Dictionary> read_;
};

} // namespace larkspan::sim
