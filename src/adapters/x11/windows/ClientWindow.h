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

/// Space that a panel keeps free at the edges of the root window, in pixels. Each edge is kept from
/// a start to an end along that edge.
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

/// What a managed window's properties say, as they were read.
struct ClientProperties {
    WindowId id = 0;
    std::string instance;
    std::string className;
    std::string netName;
    std::string name;
    /// On the machine that it names.
    std::optional<ProcessId> namedPid;
    std::string machine;
    /// Absent for a process of another machine.
    std::optional<ProcessId> pid;
    std::vector<xcb_atom_t> types;
    std::vector<xcb_atom_t> states;
    bool isUrgent = false;
    /// Its hints name a picture.
    bool hasHintIcon = false;
    /// The window wants the keyboard given to it.
    bool hasInput = true;
    /// It takes the keyboard itself when it is told to.
    bool takesFocusItself = false;
    bool answersPings = false;
    std::optional<std::uint32_t> wmState;
    std::optional<std::uint32_t> desktop;
    WindowId transientFor = 0;
    std::optional<std::uint32_t> opacity;
    Edges frame;
    /// The invisible border that a client draws its own shadow on.
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
    /// The number of the application that owns it; 0 for a window of no application.
    ProcessId owner = 0;
    /// Of this machine.
    std::optional<ProcessId> process;
    Kind kind = Kind::normal;
    std::string title;
    /// Display coordinates, points, the frame included.
    Rect bounds;
    /// 0...1.
    double alpha = 1;
    bool isMinimized = false;
    bool isFullScreen = false;
    bool demandsAttention = false;
    bool hasIcon = false;
    /// The client has promised to answer when it is asked whether it still is there.
    bool answersPings = false;
    /// Absent: on every desktop.
    std::optional<std::uint32_t> desktop;
    /// False in the moment between a window's appearance and its manager's word on its desktop.
    bool isDesktopKnown = false;
    Strut strut;

    bool isOnDesktop(std::uint32_t number) const { return !desktop || *desktop == number; }
    bool operator==(const ClientWindow&) const = default;
};

using ClientWindowRef = std::shared_ptr<const ClientWindow>;

/// What the facts mean; `owner` is left to the caller. `scale` is pixels per point.
ClientWindow describe(const ClientProperties& facts, const Atoms& atoms, double scale);

} // namespace larkspan::x11
