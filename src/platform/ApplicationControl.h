#pragma once

#include "platform/Identifiers.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// Requests to applications and the system. Each may be refused: the return value says only whether
/// the request could be sent; its effect is visible in the `Workspace`. Main thread only.
class ApplicationControl {
  public:
    virtual ~ApplicationControl() = default;

    /// Opens an application (launches it, or brings it forward if it runs), a file, a folder or a
    /// settings URL such as "x-apple.systempreferences:…".
    virtual bool open(std::string_view url) = 0;
    /// Opens files or URLs with the application at that path, and launches it if it does not run.
    virtual bool openWith(const std::vector<std::string>& urls, std::string_view application) = 0;
    /// Opens another instance of the application; if the application has an action for that, in its
    /// own process.
    virtual bool openNewInstance(std::string_view application) = 0;
    /// Shows the file in the file manager, selected in its folder.
    virtual bool reveal(std::string_view url) = 0;
    virtual bool activate(ProcessId pid) = 0;
    virtual bool hide(ProcessId pid) = 0;
    virtual bool unhide(ProcessId pid) = 0;
    /// Asks the application to quit; it may ask its user first.
    virtual bool terminate(ProcessId pid) = 0;
    virtual bool forceTerminate(ProcessId pid) = 0;
    virtual bool sendSignal(ProcessId pid, int signal) = 0;
};

} // namespace larkspan
