#include "ui/demo/Demo.h"

#include "ui/demo/DemoWindow.h"

#include <QGuiApplication>

#include <cstdio>
#include <filesystem>
#include <fmt/format.h>
#include <fstream>

namespace larkspan::ui {

namespace {

void printError(const std::string& line) {
    std::fputs(("larkspan: " + line + "\n").c_str(), stderr);
}

/// A Mac in ordinary use, to try by hand. Larkspan starts a moment after the window opens, so that
/// the Dock can be seen as it was before.
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
        printError(reading.error);
        return static_cast<int>(ExitCode::rejected);
    }
    DemoWindow window(DemoWindow::Time::real);
    window.onFailure = [&path](const std::string& failure) { printError(path + ": " + failure); };
    window.play(std::move(*reading.scenario));
    QGuiApplication::setQuitOnLastWindowClosed(true);
    window.show();
    return QGuiApplication::exec();
}

ExitCode runScenario(const std::string& path, const std::string& picturesFolder,
                     const std::string& stateFile) {
    auto reading = sim::loadScenario(path);
    if (!reading.scenario) {
        printError(reading.error);
        return ExitCode::rejected;
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
            printError("cannot write " + file);
            allWritten = false;
        };
    }
    runner.play();
    for (const std::string& failure : runner.failures())
        printError(path + ": " + failure);
    if (!stateFile.empty() && !writeState(runner, stateFile)) {
        printError("cannot write " + stateFile);
        allWritten = false;
    }
    if (!allWritten) return ExitCode::rejected;
    return runner.failures().empty() ? ExitCode::succeeded : ExitCode::failed;
}

} // namespace larkspan::ui
