#pragma once

#include "platform/Handle.h"
#include "platform/Identifiers.h"
#include "platform/Image.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// The raw values are the platform's.
enum class ActivationPolicy { regular = 0, accessory = 1, prohibited = 2 };

/// A running application, as read.
struct RunningApplication {
    /// Below 1 if the process is not known.
    ProcessId pid = -1;
    std::optional<std::string> bundleIdentifier;
    /// The path of the application bundle (on X11: of its desktop entry).
    std::optional<std::string> bundleURL;
    std::string localizedName;
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    bool isFinishedLaunching = true;
    bool isHidden = false;
    bool isActive = false;
    bool isTerminated = false;
    /// The process's own icon, if it has one.
    ImageRef icon;

    bool operator==(const RunningApplication&) const = default;
};

struct WorkspaceEvent {
    enum class Kind {
        didLaunchApplication,
        didTerminateApplication,
        didHideApplication,
        didUnhideApplication,
        didActivateApplication,
        activeSpaceDidChange,
        /// The list of running applications has changed.
        runningApplicationsDidChange,
    };
    Kind kind;
    /// The application concerned; absent for the last two kinds.
    std::optional<RunningApplication> application;
};

/// The running applications, and what the system knows about installed ones. Main thread only.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// In the system's order, which is the launch order.
    virtual std::vector<RunningApplication> runningApplications() const = 0;
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;
    /// Whether a process with that number is running, also one that is not an application.
    virtual bool hasProcess(ProcessId pid) const = 0;
    /// The path where the application with that bundle identifier is installed.
    virtual std::optional<std::string>
    urlForApplication(std::string_view bundleIdentifier) const = 0;
    /// The file manager's name for the file, with its extension.
    virtual std::string displayName(std::string_view url) const = 0;
    virtual ImageRef icon(std::string_view url) const = 0;
    virtual ImageRef genericApplicationIcon() const = 0;
    virtual Handle subscribe(std::function<void(const WorkspaceEvent&)> callback) = 0;
};

} // namespace larkspan
