#pragma once

#include "adapters/sim/world/Applications.h"
#include "adapters/sim/world/World.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// The system Dock: a process that shows the pinned list of its preferences, and that the system
/// restarts when it ends.
class DockProcess {
  public:
    static constexpr const char* bundleIdentifier = "com.apple.dock";

    DockProcess(World& world, Applications& applications)
        : world_(world)
        , applications_(applications) {}

    /// No effect if it is running.
    void start();
    bool owns(ProcessId pid) const;
    /// Ends it; a little later the system starts it again, and it reads its preferences again.
    /// Until then it reserves no strip, and changes of its settings are applied when it is back.
    void restart();

    // Changes that the user makes in the Dock itself.
    void pin(std::string_view bundleIdentifier);
    void unpin(std::string_view bundleIdentifier);
    void setPinned(const std::vector<std::string>& identifiers);

  private:
    void readPreferences();

    World& world_;
    Applications& applications_;
    Handle respawn_;
};

} // namespace larkspan::sim
