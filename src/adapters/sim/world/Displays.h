#pragma once

#include "adapters/sim/world/World.h"

#include <string_view>

namespace larkspan::sim {

/// Plugs and unplugs displays, and adds and switches Spaces on them.
class Displays {
  public:
    explicit Displays(World& world)
        : world_(world) {}

    /// One display for each part between commas: a size in points, then any of "spaces=N",
    /// "scale=N" and "name=TEXT", such as "1920x1080 spaces=2, 1280x720 scale=2". The first is the
    /// main display; the others are to its right. Returns false, and changes nothing, if it is
    /// invalid.
    bool set(std::string_view description);
    bool isReadable(std::string_view description) const;
    /// Returns the display's identifier, or 0 if the description is invalid.
    DisplayId add(std::string_view description);
    /// Its windows and Spaces move to the main display. If it was the main one, the next display
    /// becomes it.
    void unplug(DisplayId display);

    /// From now on it mirrors another display: it is not a separate screen any more, and its
    /// windows move as if it was unplugged.
    void mirror(DisplayId display);
    void endMirroring();

    /// `index` counts the display's Spaces from 0. Returns false if there is no such Space.
    bool switchSpace(DisplayId display, std::size_t index);
    void showSpace(SpaceId space);
    /// Adds a desktop after the display's last one.
    SpaceId addSpace(DisplayId display);
    /// Adds a full-screen Space beside the one that the display shows.
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
    /// The last display, after it was unplugged; its windows wait for the next one.
    std::optional<Display> lastOne_;
    DisplayId lastDisplay_ = 0;
    SpaceId lastSpace_ = 0;
};

} // namespace larkspan::sim
