#pragma once

#include "adapters/freedesktop/Environment.h"
#include "adapters/x11/connection/X11Connection.h"
#include "platform/DesktopPicture.h"
#include "platform/PanelDressing.h"
#include "platform/Platform.h"

#include <functional>
#include <memory>
#include <string>
#include <variant>

namespace larkspan::x11 {

/// A real X11 desktop seen as a Mac: every interface of the platform, over one connection to the X
/// server and the freedesktop files. Main thread only, except what the interfaces allow on other
/// threads.
class X11Desktop {
  public:
    /// What the program provides.
    struct Host {
        Scheduler& scheduler;
        UserDefaults& defaults;
        HostApplication& application;
        SystemLog& systemLog;
        freedesktop::Environment environment;
        /// The path of this program, for the login item.
        std::string program;
        /// Called with one line about something that does not work here; may be empty.
        std::function<void(const std::string&)> report;
        /// Called once, with one line, when the X server goes away; after that, nothing works any
        /// more.
        std::function<void(const std::string&)> gone;
    };

    /// Reads the desktop, or returns the error in one line. Without a name, the display is that of
    /// $DISPLAY.
    static std::variant<std::unique_ptr<X11Desktop>, std::string>
    open(Host host, const char* displayName = nullptr);
    ~X11Desktop();

    Platform platform();
    PanelDressing& panelDressing();
    DesktopPicture& desktopPicture();

  private:
    struct Parts;
    explicit X11Desktop(std::unique_ptr<Parts> parts);
    std::unique_ptr<Parts> parts_;
};

} // namespace larkspan::x11
