#pragma once

#include "adapters/freedesktop/entries/DefaultApplications.h"
#include "adapters/freedesktop/entries/DesktopEntries.h"
#include "adapters/freedesktop/launch/ChildProcesses.h"
#include "platform/Identifiers.h"

#include <optional>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// Starts applications as separate processes, without a shell, which outlive this program.
class Launcher {
  public:
    struct Result {
        /// The process of the (first) program that was started; absent on failure.
        std::optional<ProcessId> pid;
        /// Why nothing was started, on one line.
        std::string failure;
    };

    Launcher(const Environment& environment, const DefaultApplications& defaults);

    /// Starts the application with files or URLs to open. `startupId` tells the desktop which
    /// window belongs to this start.
    Result launch(const DesktopEntry& entry, const std::vector<std::string>& files = {},
                  const std::string& startupId = {});
    /// Starts one of the entry's actions, such as a new window.
    Result launchAction(const DesktopEntry& entry, const DesktopAction& action);
    /// Called after a process that was started here has ended.
    Handle subscribeEnds(std::function<void(ProcessId)> callback) {
        return children_.subscribe(std::move(callback));
    }

  private:
    Result startAll(const DesktopEntry& entry, std::string_view exec,
                    const std::vector<std::string>& files, const std::string& startupId);
    Result start(std::vector<std::string> arguments, const DesktopEntry& entry,
                 const std::string& startupId);
    bool wrapInTerminal(std::vector<std::string>& arguments) const;
    std::vector<std::string> childEnvironment(const std::string& startupId) const;

    const Environment& environment_;
    const DefaultApplications& defaults_;
    ChildProcesses children_;
};

} // namespace larkspan::freedesktop
