#include "PrivateDesktop.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

namespace larkspan::e2e {

namespace fs = std::filesystem;

const std::vector<TestApp>& testApps() {
    static const std::vector<TestApp> apps = {
        {"test-xedit", "Xedit", {"xedit"}, 0xFF00FF},
        {"test-xclock", "XClock", {"xclock"}, 0x00FF00},
        {"test-xeyes", "XEyes", {"xeyes"}, 0x0000FF},
        {"test-xcalc", "XCalc", {"xcalc"}, 0xFF8000},
    };
    return apps;
}

const TestApp& testApp(std::string_view id) {
    return *std::ranges::find(testApps(), id, &TestApp::id);
}

namespace {

fs::path makeHome() {
    auto pattern = (fs::temp_directory_path() / "larkspan-e2e-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    const fs::path home = pattern;
    for (const auto* folder : {"config", "cache", "data", "state", "runtime", "share/applications"})
        fs::create_directories(home / folder);
    fs::permissions(home / "runtime", fs::perms::owner_all);
    return home;
}

std::string hexadecimal(std::uint32_t color) {
    char text[8];
    std::snprintf(text, sizeof text, "#%06x", color);
    return text;
}

} // namespace

PrivateDesktop::PrivateDesktop()
    : home_(makeHome()) {
    for (const auto& app : testApps())
        writeEntry(app);
    writeEntry({"test-files", "Files", {"true"}, 0x00FFFF});
    std::ofstream(home_ / "config/mimeapps.list")
        << "[Default Applications]\ninode/directory=test-files.desktop\n";
    startServer();
    startWindowManager();
}

PrivateDesktop::~PrivateDesktop() {
    windowManager_.reset();
    screen_.reset();
    server_.reset();
    std::error_code ignored;
    fs::remove_all(home_, ignored);
}

Environment PrivateDesktop::environment() const {
    const char* path = std::getenv("PATH");
    return {{"PATH", path != nullptr ? path : "/usr/bin:/bin"},
            {"HOME", home_},
            {"LANG", "C.UTF-8"},
            {"DISPLAY", display_},
            {"XDG_CONFIG_HOME", home_ / "config"},
            {"XDG_CACHE_HOME", home_ / "cache"},
            {"XDG_DATA_HOME", home_ / "data"},
            {"XDG_STATE_HOME", home_ / "state"},
            {"XDG_RUNTIME_DIR", home_ / "runtime"},
            {"XDG_DATA_DIRS", home_ / "share"}};
}

std::unique_ptr<ChildProcess> PrivateDesktop::open(const TestApp& app) {
    const auto before = screen_->windows().size();
    auto command = app.command;
    // Side by side, so that every window is visible.
    const int x = 20 + 240 * (opened_++ % 5);
    command.insert(command.begin() + 1, {"-geometry", "200x200+" + std::to_string(x) + "+20"});
    auto client = std::make_unique<ChildProcess>(
        ChildProcess::Start{command, environment(), home_ / "clients.log"});
    if (!screen_->eventually([&] { return screen_->windows().size() > before; }))
        throw std::runtime_error(app.id + " has no window: " + contentsOf(home_ / "clients.log"));
    return client;
}

void PrivateDesktop::startServer() {
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    server_ = std::make_unique<ChildProcess>(ChildProcess::Start{
        {"Xvfb", "-displayfd", "3", "-screen", "0", "1280x800x24", "-nolisten", "tcp", "-noreset"},
        environment(),
        home_ / "xvfb.log",
        ends[1]});
    ::close(ends[1]);
    // The number and its newline may arrive separately.
    std::string number;
    pollfd readable{ends[0], POLLIN, 0};
    char letter = 0;
    while (poll(&readable, 1, 10'000) == 1 && read(ends[0], &letter, 1) == 1 && letter != '\n')
        number += letter;
    ::close(ends[0]);
    if (letter != '\n') throw std::runtime_error("no X server: " + contentsOf(home_ / "xvfb.log"));
    display_ = ":" + number;
    screen_ = std::make_unique<XDisplay>(display_);
    screen_->movePointer(0, 0);
}

void PrivateDesktop::startWindowManager() {
    auto itsOwn = environment();
    itsOwn.erase("XDG_DATA_DIRS"); // its own theme is installed there
    windowManager_ = std::make_unique<ChildProcess>(
        ChildProcess::Start{{"openbox"}, itsOwn, home_ / "openbox.log"});
    if (!screen_->eventually([&] { return screen_->workArea().height > 0; }))
        throw std::runtime_error("no window manager: " + contentsOf(home_ / "openbox.log"));
}

void PrivateDesktop::writeEntry(const TestApp& app) const {
    const auto icon = home_ / "share" / (app.id + ".svg");
    std::ofstream(icon) << R"(<svg xmlns="http://www.w3.org/2000/svg" width="64" height="64">)"
                        << R"(<rect width="64" height="64" fill=")" << hexadecimal(app.color)
                        << R"("/></svg>)";
    std::ofstream entry(home_ / "share/applications" / (app.id + ".desktop"));
    entry << "[Desktop Entry]\nType=Application\nName=" << app.windowClass
          << "\nStartupWMClass=" << app.windowClass << "\nIcon=" << icon.string() << "\nExec=";
    for (const auto& word : app.command)
        entry << word << ' ';
    entry << '\n';
}

} // namespace larkspan::e2e
