#pragma once

#include "adapters/sim/world/Applications.h"
#include "adapters/sim/world/World.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan::sim {

/// The system Dock: a process that shows the pinned list of its preferences, and comes back when it
/// ends.
class DockProcess {
  public:
    static constexpr const char* bundleIdentifier = "com.apple.dock";

    DockProcess(World& world, Applications& applications)
        : world_(world)
        , applications_(applications) {}

    /// Unless it runs already.
    void start();
    bool owns(ProcessId pid) const;
    /// Ends it; a little later the system starts it again, and it reads its preferences anew. Until
    /// then no strip is kept free, and what its settings are told it takes when it is back.
    void restart();

    // What the user does in the Dock itself.
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
