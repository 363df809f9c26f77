#pragma once

#include "adapters/sim/world/Windows.h"
#include "adapters/sim/world/World.h"

#include <string>
#include <string_view>

namespace larkspan::sim {

/// How an app is started.
struct LaunchOptions {
    /// Seconds until it has finished launching; 0 means at once.
    double launchSeconds = 0;
    /// Whether it opens its usual window when it has finished launching.
    bool opensWindow = false;
    /// Whether it starts behind the others.
    bool inBackground = false;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Otherwise it reports no bundle identifier and no bundle.
    bool hasBundle = true;
};

/// What apps do: launch, come forward, hide, quit, and handle the system's requests.
class Applications {
  public:
    Applications(World& world, Windows& windows, Displays& displays)
        : world_(world)
        , windows_(windows)
        , displays_(displays) {}

    /// Installs an app. The name is also that of its file.
    InstalledApp& install(std::string bundleIdentifier, std::string name);
    /// If it is running, it keeps running.
    void uninstall(std::string_view bundleIdentifier);

    /// Starts another process of the bundle even if one runs. An app that is not installed is
    /// installed, named after the last word of its identifier.
    ProcessId launch(std::string_view bundleIdentifier, const LaunchOptions& options);
    /// The effect of a double click in the Finder: launches the app at the path, or brings it
    /// forward with a window.
    bool open(std::string_view path);
    /// The app at that path opens each of them in a window.
    bool openWith(const std::vector<std::string>& files, std::string_view application);
    /// Starts another process of the app at that path.
    bool openNewInstance(std::string_view application);
    /// The Finder comes forward with the folder of the file.
    bool reveal(std::string_view path);

    /// Brings the app forward with all its windows; a hidden app is shown again.
    void activate(ProcessId pid);
    /// Makes the app frontmost without moving its windows.
    void focus(ProcessId pid) { setFrontmost(pid); }
    void hide(ProcessId pid);
    void unhide(ProcessId pid);
    /// Asks it to quit; returns whether it did.
    bool quit(ProcessId pid);
    /// No effect on the frontmost app.
    void requestAttention(ProcessId pid, bool isCritical);
    /// Ends the process at once, like a crash.
    void kill(ProcessId pid);

    /// After windows were closed or hidden, or a Space was switched: makes the app of the frontmost
    /// window the frontmost app.
    void settleFrontmost();

  private:
    const InstalledApp* installedAt(std::string_view path) const;
    ProcessId launchUsually(const InstalledApp& bundle, bool opensWindow);
    bool openFolder(std::string_view path);
    void announceInstalled();
    void finishLaunching(ProcessId pid, const LaunchOptions& options);
    void bringBack(App& app);
    void setFrontmost(ProcessId pid);
    void reportFront();

    World& world_;
    Windows& windows_;
    Displays& displays_;
    ProcessId lastPid_ = 100;
    std::map<ProcessId, Handle> launches_;
    Handle frontReport_;
};

} // namespace larkspan::sim
