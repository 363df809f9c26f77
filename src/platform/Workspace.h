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

/// A running application as it was when it was read.
struct RunningApplication {
    /// Below 1 when the process is not known.
    ProcessId pid = -1;
    std::optional<std::string> bundleIdentifier;
    /// Where the application bundle lies (on X11: its desktop entry), as a file path.
    std::optional<std::string> bundleURL;
    std::string localizedName;
    ActivationPolicy activationPolicy = ActivationPolicy::regular;
    bool isFinishedLaunching = true;
    bool isHidden = false;
    bool isActive = false;
    bool isTerminated = false;
    /// The process's own icon, when it has one.
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
        /// The list of running applications is another than before.
        runningApplicationsDidChange,
    };
    Kind kind;
    /// Whom it is about; absent for the last two kinds.
    std::optional<RunningApplication> application;
};

/// The running applications and what the system knows of installed ones. Main thread only.
class Workspace {
  public:
    virtual ~Workspace() = default;

    /// In the order in which the system lists them, which is the order in which they were launched.
    virtual std::vector<RunningApplication> runningApplications() const = 0;
    virtual std::optional<RunningApplication> frontmostApplication() const = 0;
    /// Whether a process of that number runs, one that is no application too.
    virtual bool hasProcess(ProcessId pid) const = 0;
    /// Where the application of that bundle identifier is installed, as a file path.
    virtual std::optional<std::string>
    urlForApplication(std::string_view bundleIdentifier) const = 0;
    /// The file manager's name for the file, with its extension.
    virtual std::string displayName(std::string_view url) const = 0;
    virtual ImageRef icon(std::string_view url) const = 0;
    virtual ImageRef genericApplicationIcon() const = 0;
    virtual Handle subscribe(std::function<void(const WorkspaceEvent&)> callback) = 0;
};

} // namespace larkspan
