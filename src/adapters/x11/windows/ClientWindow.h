#pragma once

#include "adapters/x11/connection/Atoms.h"
#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace larkspan::x11 {

/// Lengths at the four edges, in pixels, in the order of the window properties that hold them.
struct Edges {
    std::uint32_t left = 0;
    std::uint32_t right = 0;
    std::uint32_t top = 0;
    std::uint32_t bottom = 0;
    bool operator==(const Edges&) const = default;
};

/// Space that a panel reserves at the edges of the root window, in pixels. At each edge it reaches
/// from a start to an end along that edge.
struct Strut {
    struct Range {
        std::uint32_t start = 0;
        std::uint32_t end = UINT32_MAX;
        bool operator==(const Range&) const = default;
    };
    Edges depth;
    Range left, right, top, bottom;
    bool operator==(const Strut&) const = default;
};

/// A managed window's properties, as read.
struct ClientProperties {
    WindowId id = 0;
    std::string instance;
    std::string className;
    std::string netName;
    std::string name;
    /// On the machine that the window names.
    std::optional<ProcessId> namedPid;
    std::string machine;
    /// Absent for a process on another machine.
    std::optional<ProcessId> pid;
    std::vector<xcb_atom_t> types;
    std::vector<xcb_atom_t> states;
    bool isUrgent = false;
    /// Whether its hints name an icon.
    bool hasHintIcon = false;
    /// Whether the window wants to be given the keyboard focus.
    bool hasInput = true;
    /// Whether it takes the keyboard focus itself when asked to.
    bool takesFocusItself = false;
    bool supportsPings = false;
    std::optional<std::uint32_t> wmState;
    std::optional<std::uint32_t> desktop;
    WindowId transientFor = 0;
    std::optional<std::uint32_t> opacity;
    Edges frame;
    /// The invisible border on which a client draws its own shadow.
    Edges shadow;
    /// The client's own area on the root window, in pixels.
    Rect area;
    Strut strut;
    bool hasIcon = false;

    bool takesKeyboard() const { return hasInput || takesFocusItself; }
};

/// A managed window as the rest of the system sees it. Immutable once published.
struct ClientWindow {
    enum class Kind { normal, dialog, floating, dock, desktop };

    WindowId id = 0;
    /// The number of the application that owns it; 0 if none does.
    ProcessId owner = 0;
    /// On this machine.
    std::optional<ProcessId> process;
    Kind kind = Kind::normal;
    std::string title;
    /// Display coordinates in points, with the frame.
    Rect bounds;
    /// 0...1.
    double alpha = 1;
    bool isMinimized = false;
    bool isFullScreen = false;
    bool demandsAttention = false;
    bool hasIcon = false;
    /// Whether the client supports pings.
    bool supportsPings = false;
    /// Absent if it is on all desktops.
    std::optional<std::uint32_t> desktop;
    /// False for a moment after a window appears, until the window manager sets its desktop.
    bool isDesktopKnown = false;
    Strut strut;

    bool isOnDesktop(std::uint32_t number) const { return !desktop || *desktop == number; }
    bool operator==(const ClientWindow&) const = default;
};

using ClientWindowRef = std::shared_ptr<const ClientWindow>;

/// Interprets the properties; the caller sets `owner`. `scale` is pixels per point.
ClientWindow describe(const ClientProperties& facts, const Atoms& atoms, double scale);

} // namespace larkspan::x11
