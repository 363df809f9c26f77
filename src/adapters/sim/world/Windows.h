#pragma once

#include "adapters/sim/world/Displays.h"
#include "adapters/sim/world/World.h"

namespace larkspan::sim {

/// What a new window is like. What is left out is decided as a Mac does.
struct WindowOptions {
    /// Display coordinates (y downwards). By default the app's usual size, placed in cascade.
    std::optional<Rect> frame;
    std::string title;
    /// By default the main display.
    std::optional<DisplayId> display;
    /// By default the Space that the window's display shows.
    std::optional<SpaceId> space;
    bool everySpace = false;
    std::string subrole = "AXStandardWindow";
    int layer = 0;
    /// Absent leaves the field out of the window list.
    std::optional<double> alpha = 1.0;
    bool hasNumber = true;
    bool hasName = true;
};

/// What windows do: they open in front of their app's others, cover each other, and go.
class Windows {
  public:
    Windows(World& world, Displays& displays)
        : world_(world)
        , displays_(displays) {}

    /// Answers 0 when the process does not run or there is no display.
    WindowId open(ProcessId pid, const WindowOptions& options);
    void close(WindowId window);
    void closeAll(ProcessId pid);
    void setFrame(WindowId window, const Rect& frame);
    /// To the shown Space of the display, at the same place of it.
    void moveToDisplay(WindowId window, DisplayId display);
    void moveToSpace(WindowId window, SpaceId space);
    void setTitle(WindowId window, std::string title);
    void setMinimized(WindowId window, bool minimized);
    void enterFullScreen(WindowId window);
    void leaveFullScreen(WindowId window);

    /// In front of all others.
    void raise(WindowId window);
    /// All windows of the app in front of all others, their order kept.
    void raiseAll(ProcessId pid);
    /// The app's frontmost window that is on screen; nullptr without one.
    Window* front(ProcessId pid);
    /// The process of the frontmost ordinary window on screen; 0 without one.
    ProcessId frontmostOwner() const;

  private:
    Rect usualFrame(const App& app, const Display& display) const;

    World& world_;
    Displays& displays_;
    WindowId lastWindow_ = 0;
};

} // namespace larkspan::sim
