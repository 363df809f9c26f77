#pragma once

#include "platform/Identifiers.h"

#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// What can be asked of applications and the system. All are requests that may be refused: the
/// answer says only whether the request could be sent, the effect shows in the `Workspace`. Main
/// thread only.
class ApplicationControl {
  public:
    virtual ~ApplicationControl() = default;

    /// Opens an application (launching it, or bringing it forward when it runs), a file, a folder
    /// or a settings address such as "x-apple.systempreferences:…".
    virtual bool open(std::string_view url) = 0;
    /// Opens files or addresses with the application at that place, launching it when it does not
    /// run.
    virtual bool openWith(const std::vector<std::string>& urls, std::string_view application) = 0;
    /// Opens the application once more beside its running processes; where an application names a
    /// way to do so in its own process, in that way.
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
