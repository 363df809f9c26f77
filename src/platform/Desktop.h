#pragma once

#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>

namespace larkspan {

/// A desktop the program runs on: the system's interfaces, and those of the views alone.
class Desktop {
  public:
    virtual ~Desktop() = default;
    virtual Platform platform() = 0;
    virtual PanelDressing& panelDressing() = 0;
    virtual DesktopPicture& desktopPicture() = 0;
    /// The folder where the desktop keeps what the views' toolkit does not know of how the user
    /// wants things to look; empty when the toolkit knows it all.
    virtual std::string appearanceFolder() const = 0;
};

/// What a desktop tells the program's entry. Unless said otherwise each is set, and called on the
/// main thread.
struct DesktopCallbacks {
    /// One line about something that does not work here.
    std::function<void(const std::string&)> report;
    /// The desktop went away, with one line that says so; nothing answers any more.
    std::function<void(const std::string&)> gone;
    /// The user opened the program once more. On desktops where that starts a second process, that
    /// process says so itself, over the control socket.
    std::function<void()> reopened;
    /// Takes the lines of the system's log where the desktop has no such log; empty when nobody
    /// reads them. Any thread.
    std::function<void(const std::string&)> log;
};

/// The desktop before it is opened. Made first thing in `main`, before the toolkit starts.
class DesktopStart {
  public:
    using Opened = std::variant<std::unique_ptr<Desktop>, std::string>;

    virtual ~DesktopStart() = default;
    /// The name under which this user's instance on this desktop is reached.
    virtual std::string instanceName() const = 0;
    /// Why nothing can be shown here, in one line; absent when it can. To be asked before the
    /// toolkit starts, which may abort the program.
    virtual std::optional<std::string> unavailableReason() const = 0;
    /// Reads the desktop as it is, or says in one line why it cannot. Once, after the toolkit has
    /// started; the desktop ends before the toolkit and the scheduler do.
    virtual Opened open(Scheduler& scheduler, DesktopCallbacks callbacks) const = 0;
};

} // namespace larkspan
