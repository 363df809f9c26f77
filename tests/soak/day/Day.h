#pragma once

#include "bar/TileName.h"
#include "scenario/Stage.h"
#include "soak/day/LivePanels.h"
#include "soak/day/Step.h"

#include <optional>
#include <string>
#include <vector>

namespace larkspan::soak {

/// A simulated Mac on which anything may happen, with the program on it, and the state that only
/// the acts know. Steps refer to things by index: app 0 is the Finder, and its processes and
/// windows are counted from the first.
class Day {
  public:
    static constexpr int appCount = 9;
    static constexpr std::size_t mostProcesses = 16;
    static constexpr std::size_t mostWindows = 40;
    static constexpr std::size_t mostDisplays = 4;
    static constexpr std::size_t mostSpaces = 6;

    Day();

    /// Returns whether it had an effect.
    bool perform(const Step& step);

    /// "com.example.app3", or the Finder's.
    static std::string identifier(int app);
    /// A process of that app, which may have no bundle; 0 if none is running.
    ProcessId process(int app, int copy = 0) const;
    WindowId window(int app, int count) const;
    DisplayId display(int count) const;
    /// nullptr while the program is not running.
    AppController* controller();
    const AppController* controller() const { return const_cast<Day*>(this)->controller(); }

    /// One of the tiles of that app on a bar of the screens, counted along the bar.
    std::optional<TileOnBar> tile(int app, int count) const;

    /// How many runs of the program have ended.
    int runsEnded = 0;
    /// How often the user changed the list of pinned apps, here or in the Dock.
    int pinActs = 0;
    /// What the user has under the pointer while the desktop goes on: it may be long out of date.
    std::optional<BarTile> heldTile;

    std::vector<const LivePanels::Panel*> panels;
    sim::Stage stage{[this](AppController&) { return std::make_unique<LivePanels>(panels); }};
    sim::SimMac& mac = stage.mac;
};

} // namespace larkspan::soak
