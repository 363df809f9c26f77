#pragma once

#include "ChildProcess.h"
#include "XDisplay.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include <csignal>

namespace larkspan::e2e {

/// An application of the private desktop: a real X client, its desktop entry, and an icon in one
/// bright colour, by which its tile is found on the screen.
struct TestApp {
    std::string id;
    std::string windowClass;
    std::vector<std::string> command;
    std::uint32_t color = 0;
};

/// xedit, xclock, xeyes and xcalc.
const std::vector<TestApp>& testApps();
const TestApp& testApp(std::string_view id);

/// A private desktop: an X server without a screen, openbox, and a new home folder with only the
/// desktop entries of the test's applications.
class PrivateDesktop {
  public:
    PrivateDesktop();
    ~PrivateDesktop();
    PrivateDesktop(const PrivateDesktop&) = delete;
    PrivateDesktop& operator=(const PrivateDesktop&) = delete;

    XDisplay& screen() { return *screen_; }
    /// A name such as ":3".
    const std::string& display() const { return display_; }
    const std::filesystem::path& home() const { return home_; }
    std::filesystem::path settingsFile() const { return home_ / "config/larkspan/settings.json"; }
    /// The environment of a program that the user of this desktop starts.
    Environment environment() const;

    /// Starts a client at its own position and waits for its window.
    std::unique_ptr<ChildProcess> open(const TestApp& app);
    /// Kills the X server, as a crash would.
    void endServer() { server_->signal(SIGKILL); }

  private:
    void startServer();
    void startWindowManager();
    void writeEntry(const TestApp& app) const;

    std::filesystem::path home_;
    std::string display_;
    std::unique_ptr<ChildProcess> server_;
    std::unique_ptr<XDisplay> screen_;
    std::unique_ptr<ChildProcess> windowManager_;
    int opened_ = 0;
};

} // namespace larkspan::e2e
