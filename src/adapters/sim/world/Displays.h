#pragma once

#include "adapters/sim/world/World.h"

#include <string_view>

namespace larkspan::sim {

/// Plugging displays, and switching and making Spaces on them.
class Displays {
  public:
    explicit Displays(World& world)
        : world_(world) {}

    /// One display per part between commas: a size in points, then any of "spaces=N", "scale=N" and
    /// "name=TEXT", such as "1920x1080 spaces=2, 1280x720 scale=2". The first is the main display,
    /// the others stand to its right. Answers false, and changes nothing, when it cannot be read.
    bool set(std::string_view description);
    bool isReadable(std::string_view description) const;
    /// Answers the display's identifier, or 0 when the description cannot be read.
    DisplayId add(std::string_view description);
    /// Its windows and Spaces move to the main display. The next display becomes the main one when
    /// it was that.
    void unplug(DisplayId display);

    /// From now on it shows another display's picture: it is no screen of its own, and its windows
    /// go where those of an unplugged one go.
    void mirror(DisplayId display);
    void endMirroring();

    /// `index` counts the display's Spaces from 0. Answers false when there is no such Space.
    bool switchSpace(DisplayId display, std::size_t index);
    void showSpace(SpaceId space);
    /// A new desktop at the end of the display's row.
    SpaceId addSpace(DisplayId display);
    /// A new full-screen Space beside the one the display shows.
    SpaceId addFullScreenSpace(Display& display);
    void removeSpace(SpaceId space);

  private:
    static std::optional<Display> parse(std::string_view part);
    Space makeSpace(int type);
    std::optional<Display> takeAway(DisplayId display);
    void put(Display display);
    void takeIn(const Display& gone);
    void arrange();

    World& world_;
    std::vector<Display> mirroring_;
    /// The display that went when no other was left, whose windows wait for the next one.
    std::optional<Display> lastOne_;
    DisplayId lastDisplay_ = 0;
    SpaceId lastSpace_ = 0;
};

} // namespace larkspan::sim
