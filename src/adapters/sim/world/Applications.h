#pragma once

#include "adapters/sim/world/Windows.h"
#include "adapters/sim/world/World.h"

#include <string>
#include <string_view>

namespace larkspan::sim {

/// How an app is started.
struct LaunchOptions {
    /// Seconds until it has finished launching; 0 is at once.
    double launchSeconds = 0;
    /// Opens its usual window when it has finished launching.
    bool opensWindow = false;
    /// Starts behind the others.
    bool inBackground = false;
    ActivationPolicy policy = ActivationPolicy::regular;
    /// Reports no bundle identifier, and no bundle.
    bool hasBundle = true;
};

/// What apps do: launch, come forward, hide, quit, and answer the system's requests.
class Applications {
  public:
    Applications(World& world, Windows& windows, Displays& displays)
        : world_(world)
        , windows_(windows)
        , displays_(displays) {}

    /// Puts an app on the disk. The name is also its file's.
    InstalledApp& install(std::string bundleIdentifier, std::string name);
    /// It stays running when it runs.
    void uninstall(std::string_view bundleIdentifier);

    /// Another process of the bundle even when one runs. An app that is not installed is installed
    /// under the last word of its identifier.
    ProcessId launch(std::string_view bundleIdentifier, const LaunchOptions& options);
    /// What a click in the Finder does: launches the app at the path, or brings it forward with a
    /// window to work in.
    bool open(std::string_view path);
    /// The app at that place opens each of them in a window.
    bool openWith(const std::vector<std::string>& files, std::string_view application);
    /// Another process of the app at that place.
    bool openNewInstance(std::string_view application);
    /// The Finder comes forward with the folder of the file.
    bool reveal(std::string_view path);

    /// Comes forward with all its windows; a hidden app is shown again.
    void activate(ProcessId pid);
    /// Becomes the app in front without moving its windows.
    void focus(ProcessId pid) { setFrontmost(pid); }
    void hide(ProcessId pid);
    void unhide(ProcessId pid);
    /// Asks it to quit; answers whether it went.
    bool quit(ProcessId pid);
    /// Nothing comes of it for the app in front.
    void requestAttention(ProcessId pid, bool isCritical);
    /// Ends the process at once, as a crash does.
    void kill(ProcessId pid);

    /// After windows went, were hidden, or a Space was switched: the app in front is the one whose
    /// window is.
    void settleFrontmost();

  private:
    const InstalledApp* installedAt(std::string_view path) const;
    ProcessId launchUsually(const InstalledApp& bundle, bool opensWindow);
    bool openFolder(std::string_view path);
    void tellOfInstalled();
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
