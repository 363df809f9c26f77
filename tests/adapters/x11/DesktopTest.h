#pragma once

#include "MemoryDefaults.h"
#include "adapters/qt/QtScheduler.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"
#include "adapters/x11/PrivateServer.h"
#include "adapters/x11/TestClient.h"
#include "adapters/x11/X11Desktop.h"
#include "adapters/x11/X11SystemLog.h"
#include "platform/ApplicationControl.h"
#include "platform/HostApplication.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>

namespace larkspan::x11 {

/// A program that never quits.
class RestingApplication : public HostApplication {
  public:
    void activate() override {}
    void terminate() override {}
    std::string description() const override { return {}; }
};

/// An X11 desktop as the adapter sees it, with its own home folder, and queries for tests.
class DesktopUnderTest {
  public:
    explicit DesktopUnderTest(const std::string& display,
                              const std::map<std::string, std::string>& entries = {})
        : display_(display) {
        for (const auto& [id, text] : entries)
            home.write("data/applications/" + id + ".desktop",
                       "[Desktop Entry]\nType=Application\n" + text);
        freedesktop::Environment environment({{"HOME", home.path()},
                                              {"PATH", "/usr/bin:/bin"},
                                              {"DISPLAY", display},
                                              {"XDG_DATA_HOME", home.path("data")},
                                              {"XDG_CONFIG_HOME", home.path("config")},
                                              {"XDG_DATA_DIRS", home.path("none")},
                                              {"XDG_CONFIG_DIRS", home.path("none")}});
        auto opened = X11Desktop::open(
            {.scheduler = scheduler,
             .defaults = defaults,
             .application = application,
             .systemLog = systemLog,
             .environment = std::move(environment),
             .program = "/usr/bin/larkspan",
             .report = [this](const std::string& line) { reports.push_back(line); },
             .gone = [this](const std::string& line) { gone.push_back(line); }},
            display_.c_str());
        if (auto* failure = std::get_if<std::string>(&opened)) throw std::runtime_error(*failure);
        desktop = std::move(std::get<std::unique_ptr<X11Desktop>>(opened));
    }

    Platform platform() const { return desktop->platform(); }
    WindowServer& server() const { return platform().windowServer; }
    ApplicationControl& applications() const { return platform().applications; }

    /// Opens a window and waits until it is on screen.
    WindowId open(TestClient& client, const TestWindow& window) const {
        const auto number = client.open(window);
        EXPECT_TRUE(qt::runUntil([&] { return isOnScreen(number); }));
        return number;
    }
    std::optional<WindowListEntry> entry(WindowId window) const {
        const auto list = server().windowList(WindowListOption::all);
        for (const auto& candidate : *list)
            if (candidate.number == window) return candidate;
        return std::nullopt;
    }
    bool isListed(WindowId window) const { return entry(window).has_value(); }
    bool isOnScreen(WindowId window) const {
        const auto found = entry(window);
        return found && found->isOnScreen.value_or(false);
    }
    bool isOnSpace(WindowId window, SpaceId space) const {
        const auto windows = *server().windowsOfSpace(space);
        return std::find(windows.begin(), windows.end(), window) != windows.end();
    }
    std::string title(WindowId window) const {
        const auto found = entry(window);
        return found ? found->name.value_or("(none)") : "(not listed)";
    }
    std::optional<RunningApplication> running(const std::string& identifier) const {
        for (const auto& candidate : platform().workspace.runningApplications())
            if (candidate.bundleIdentifier == identifier) return candidate;
        return std::nullopt;
    }
    std::string frontmost() const {
        const auto front = platform().workspace.frontmostApplication();
        return front ? front->bundleIdentifier.value_or("(none)") : "";
    }
    AXElementRef element(WindowId window) const {
        auto& accessibility = platform().accessibility;
        const auto owner = entry(window)->ownerPID.value_or(0);
        const auto windows =
            accessibility.attribute(accessibility.createApplication(owner), "AXWindows");
        for (const auto& candidate : *windows.as<std::vector<AXElementRef>>())
            if (accessibility.window(candidate) == window) return candidate;
        return nullptr;
    }

    TemporaryFolder home;
    QCoreApplication& loop = qt::testApplication();
    qt::QtScheduler scheduler;
    MemoryDefaults defaults;
    RestingApplication application;
    X11SystemLog systemLog{nullptr};
    std::vector<std::string> reports;
    std::vector<std::string> gone;
    std::unique_ptr<X11Desktop> desktop;

  private:
    std::string display_;
};

/// The X server, with a window manager and two desktops, which the tests share.
class ManagedServer : public testing::Environment {
  public:
    /// Started on first use.
    static const std::string& display() {
        if (!server_) start();
        return server_->display();
    }
    void TearDown() override { server_.reset(); }

  private:
    static void start() {
        server_ = std::make_unique<PrivateServer>();
        server_->startManager();
        // Requested repeatedly: the manager ignores requests while it starts.
        qt::testApplication();
        TestClient pager(server_->display());
        EXPECT_TRUE(qt::runUntil([&] {
            pager.ask(pager.root(), "_NET_NUMBER_OF_DESKTOPS", {2});
            return pager.numbers(pager.root(), "_NET_NUMBER_OF_DESKTOPS") ==
                   std::vector<std::uint32_t>{2};
        }));
    }

    static inline std::unique_ptr<PrivateServer> server_;
};

inline const testing::Environment* const managedServer =
    testing::AddGlobalTestEnvironment(new ManagedServer);

/// A desktop on the shared X server, and a client with windows.
class OnManagedServer : public testing::Test {
  protected:
    explicit OnManagedServer(const std::map<std::string, std::string>& entries = {})
        : desktop(ManagedServer::display(), entries) {}

    WindowId open(const TestWindow& window = {}) { return desktop.open(client, window); }
    template <typename T>
    T attribute(WindowId window, std::string_view name) const {
        auto& accessibility = desktop.platform().accessibility;
        return *accessibility.attribute(desktop.element(window), name).as<T>();
    }
    ProcessId owner(WindowId window) const { return desktop.entry(window)->ownerPID.value_or(0); }

    DesktopUnderTest desktop;
    TestClient client{ManagedServer::display()};
};

} // namespace larkspan::x11
