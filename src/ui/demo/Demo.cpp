#include "ui/demo/Demo.h"

#include "ui/demo/DemoWindow.h"

#include <QGuiApplication>

#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>

namespace larkspan::ui {

namespace {

constexpr int notAsExpected = 1;
constexpr int unusable = 2;

void complain(const std::string& line) {
    std::fputs(("larkspan: " + line + "\n").c_str(), stderr);
}

/// A Mac in everyday use, for a person to play with. The program starts a moment later than the
/// window opens, so that its Dock is seen as it was.
constexpr const char* everyday = R"({
    "title": "Larkspan on a simulated Mac",
    "world": {
        "displays": "1280x800 spaces=2",
        "usualApps": true,
        "running": ["org.example.photos", "org.example.notes", "org.example.browser"],
        "announcesChanges": true,
        "starts": false
    },
    "steps": [{ "at": 1.5, "do": "startLarkspan" }]
})";

bool writeState(sim::ScenarioRunner& runner, const std::string& file) {
    std::ofstream stream(file, std::ios::binary);
    stream << runner.state().dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    return stream.good();
}

} // namespace

int runDemo(const std::string& path) {
    auto reading =
        path.empty() ? sim::parseScenario(everyday, "everyday") : sim::loadScenario(path);
    if (!reading.scenario) {
        complain(reading.complaint);
        return unusable;
    }
    DemoWindow window(DemoWindow::Time::real);
    window.onFailure = [&path](const std::string& failure) { complain(path + ": " + failure); };
    window.play(std::move(*reading.scenario));
    QGuiApplication::setQuitOnLastWindowClosed(true);
    window.show();
    return QGuiApplication::exec();
}

int runScenario(const std::string& path, const std::string& picturesFolder,
                const std::string& stateFile) {
    auto reading = sim::loadScenario(path);
    if (!reading.scenario) {
        complain(reading.complaint);
        return unusable;
    }
    bool allWritten = true;
    DemoWindow window(DemoWindow::Time::virtualOnly);
    sim::ScenarioRunner runner(std::move(*reading.scenario), window.stage());
    if (!picturesFolder.empty()) {
        std::error_code error;
        std::filesystem::create_directories(picturesFolder, error);
        runner.takePicture = [&](const std::string& name) {
            const std::string file = picturesFolder + "/" + name + ".png";
            if (window.picture().save(QString::fromStdString(file))) return;
            complain(file + ": the picture cannot be written");
            allWritten = false;
        };
    }
    runner.play();
    for (const std::string& failure : runner.failures())
        complain(path + ": " + failure);
    if (!stateFile.empty() && !writeState(runner, stateFile)) {
        complain(stateFile + ": the state cannot be written");
        allWritten = false;
    }
    if (!allWritten) return unusable;
    return runner.failures().empty() ? 0 : notAsExpected;
}

} // namespace larkspan::ui
