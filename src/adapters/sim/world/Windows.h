#pragma once

#include "adapters/sim/world/Displays.h"
#include "adapters/sim/world/World.h"

namespace larkspan::sim {

/// The properties of a new window. Missing ones are chosen as on a Mac.
struct WindowOptions {
    /// Display coordinates (y downwards). By default the app's usual size, cascaded.
    std::optional<Rect> frame;
    std::string title;
    /// By default the main display.
    std::optional<DisplayId> display;
    /// By default the Space that the window's display shows.
    std::optional<SpaceId> space;
    bool everySpace = false;
    std::string subrole = "AXStandardWindow";
    int layer = 0;
    /// Absent means that the window list omits the field.
    std::optional<double> alpha = 1.0;
    bool hasNumber = true;
    bool hasName = true;
};

/// What windows do: open in front of the other windows of their app, cover each other, and close.
class Windows {
  public:
    Windows(World& world, Displays& displays)
        : world_(world)
        , displays_(displays) {}

    /// Returns 0 if the process is not running or there is no display.
    WindowId open(ProcessId pid, const WindowOptions& options);
    void close(WindowId window);
    void closeAll(ProcessId pid);
    void setFrame(WindowId window, const Rect& frame);
    /// Moves it to the shown Space of the display, at the same position.
    void moveToDisplay(WindowId window, DisplayId display);
    void moveToSpace(WindowId window, SpaceId space);
    void setTitle(WindowId window, std::string title);
    void setMinimized(WindowId window, bool minimized);
    void enterFullScreen(WindowId window);
    void leaveFullScreen(WindowId window);

    /// Puts it in front of all others.
    void raise(WindowId window);
    /// Puts all windows of the app in front of all others, in the same order.
    void raiseAll(ProcessId pid);
    /// The app's frontmost window on screen; nullptr if there is none.
    Window* front(ProcessId pid);
    /// The process of the frontmost ordinary window on screen; 0 if there is none.
    ProcessId frontmostOwner() const;

  private:
    Rect usualFrame(const App& app, const Display& display) const;

    World& world_;
    Displays& displays_;
    WindowId lastWindow_ = 0;
};

} // namespace larkspan::sim
