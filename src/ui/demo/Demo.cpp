#include "ui/demo/Demo.h"

#include "platform/sim/ScenarioWorld.h"
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

/// A Mac in everyday use, for a person to play with.
void furnish(sim::Stage& stage) {
    sim::SimMac& mac = stage.mac;
    mac.setDisplays("1280x800 spaces=2");
    mac.setAnnouncesChanges(true);
    sim::installUsualApps(mac);
    mac.launch("org.example.photos", {.opensWindow = true});
    mac.launch("org.example.notes", {.opensWindow = true});
    mac.launch("org.example.browser", {.opensWindow = true});
    mac.scheduler.runUntilIdle();
    stage.start();
}

bool writeState(sim::ScenarioRunner& runner, const std::string& file) {
    std::ofstream stream(file, std::ios::binary);
    stream << runner.state().dump(2, ' ', false, nlohmann::json::error_handler_t::replace) << '\n';
    return stream.good();
}

} // namespace

int runDemo(const std::string& path) {
    DemoWindow window(DemoWindow::Time::real);
    if (path.empty()) {
        furnish(window.stage());
    } else {
        auto reading = sim::loadScenario(path);
        if (!reading.scenario) {
            complain(reading.complaint);
            return unusable;
        }
        window.play(std::move(*reading.scenario));
    }
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
