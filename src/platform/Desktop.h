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

/// A desktop that the program runs on: the system's interfaces, and those used only by the views.
class Desktop {
  public:
    virtual ~Desktop() = default;
    virtual Platform platform() = 0;
    virtual PanelDressing& panelDressing() = 0;
    virtual DesktopPicture& desktopPicture() = 0;
    /// The folder of the desktop's appearance settings that the views' toolkit does not read; empty
    /// if there are none.
    virtual std::string appearanceFolder() const = 0;
};

/// How a desktop reports to the program's entry point. Each is set unless noted otherwise, and
/// called on the main thread.
struct DesktopCallbacks {
    /// One line about something that does not work here.
    std::function<void(const std::string&)> report;
    /// The connection to the desktop was lost; the text is one line about it. Nothing works any
    /// more.
    std::function<void(const std::string&)> gone;
    /// The user started the program again. On desktops where that starts a second process, that
    /// process reports it over the control socket.
    std::function<void()> reopened;
    /// Receives the lines of the system's log on desktops without such a log; empty if nobody reads
    /// them. Any thread.
    std::function<void(const std::string&)> log;
};

/// The desktop before it is opened. Create it first in `main`, before the toolkit starts.
class DesktopStart {
  public:
    using Opened = std::variant<std::unique_ptr<Desktop>, std::string>;

    virtual ~DesktopStart() = default;
    /// The name of this user's instance on this desktop.
    virtual std::string instanceName() const = 0;
    /// Why nothing can be shown here, in one line; absent if it can. Call it before the toolkit
    /// starts, which may abort the program.
    virtual std::optional<std::string> unavailableReason() const = 0;
    /// Opens the desktop, or returns the error in one line. Call it once, after the toolkit has
    /// started; destroy the desktop before the toolkit and the scheduler.
    virtual Opened open(Scheduler& scheduler, DesktopCallbacks callbacks) const = 0;
};

} // namespace larkspan
