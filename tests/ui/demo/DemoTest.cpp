#include "ui/demo/Demo.h"

#include "ui/demo/DemoWindow.h"
#include "ui/parts/Environment.h"

#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QImage>

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace larkspan::ui {
namespace {

namespace files = std::filesystem;

class DemoTest : public testing::Test {
  protected:
    DemoTest() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        prepareEnvironment();
        application_ = std::make_unique<QGuiApplication>(count_, arguments_);
        folder_ = files::temp_directory_path() / ("larkspan-demo-" + std::to_string(getpid()));
    }
    ~DemoTest() override { files::remove_all(folder_); }

    std::string path(const char* name) const { return folder_ / name; }

    int count_ = 1;
    char name_[9] = "larkspan";
    char* arguments_[2] = {name_, nullptr};
    std::unique_ptr<QGuiApplication> application_;
    files::path folder_;
};

/// Colours of the picture, coarsely: a blank picture has one.
std::size_t colorCount(const QImage& picture) {
    std::set<QRgb> colors;
    for (int y = 0; y < picture.height(); y += 7) {
        for (int x = 0; x < picture.width(); x += 7)
            colors.insert(picture.pixel(x, y) & 0xF0F0F0);
    }
    return colors.size();
}

TEST_F(DemoTest, EveryScenarioHoldsAndWritesItsPicturesAndItsState) {
    files::create_directories(folder_);
    for (const auto& scenario : files::directory_iterator(LARKSPAN_DEMO_FOLDER)) {
        SCOPED_TRACE(scenario.path());
        const auto name = scenario.path().stem().string();
        const std::string state = path((name + ".state").c_str());
        EXPECT_EQ(runScenario(scenario.path(), path(name.c_str()), state), ExitCode::succeeded);
        std::ifstream stream(state);
        EXPECT_TRUE(nlohmann::json::parse(stream, nullptr, false).contains("running"));
        for (const auto& file : files::directory_iterator(path(name.c_str()))) {
            const QImage picture(QString::fromStdString(file.path()));
            EXPECT_GT(colorCount(picture), 40U) << file.path();
        }
    }
}

TEST_F(DemoTest, ShowsTheDockAndThePermissionsAsTheyAre) {
    ASSERT_EQ(runScenario(LARKSPAN_DEMO_FOLDER "/permissions.json", folder_, ""),
              ExitCode::succeeded);
    const auto part = [this](const char* name, const QRect& area) {
        return QImage(QString::fromStdString(path(name))).copy(area);
    };
    const QRect dock(300, 800, 840, 100);
    EXPECT_EQ(part("01-before.png", dock), part("08-end.png", dock)) << "put back as it was";
    EXPECT_NE(part("01-before.png", dock), part("07-killed.png", dock));
    // The signs at the start of the two rows, in the window in the middle of the display.
    const QRect accessibility(500, 400, 50, 60);
    const QRect screenRecording(500, 484, 50, 60);
    EXPECT_NE(part("02-shrunk.png", accessibility), part("04-one-granted.png", accessibility));
    EXPECT_EQ(part("02-shrunk.png", screenRecording), part("04-one-granted.png", screenRecording));
    EXPECT_NE(part("02-shrunk.png", screenRecording), part("05-all-granted.png", screenRecording));
}

TEST_F(DemoTest, TheWindowSaysWhatItPlaysAndWhatWasNotAsExpected) {
    auto reading = sim::parseScenario(R"({"title": "A story", "steps": [
        {"at": 0, "expect": "/mode", "equals": "systemDock"},
        {"at": 0.1, "do": "setTrash", "items": 1, "note": "Something is thrown away."}]})",
                                      "story.json");
    DemoWindow window(DemoWindow::Time::real);
    std::vector<std::string> failures;
    window.onFailure = [&](const std::string& failure) { failures.push_back(failure); };
    window.play(std::move(*reading.scenario));
    EXPECT_EQ(window.title(), "A story");
    QDeadlineTimer limit(10'000);
    while (!window.title().contains("Something") && !limit.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(window.title(), "A story — Something is thrown away.");
    ASSERT_EQ(failures.size(), 1U);
    EXPECT_TRUE(failures[0].starts_with("step 1 at 0 s: /mode is"));
}

TEST_F(DemoTest, SaysByItsCodeWhatWentWrong) {
    files::create_directories(folder_);
    EXPECT_EQ(runScenario(path("none.json"), "", ""), ExitCode::rejected);
    std::ofstream(path("wrong.json"))
        << R"({"steps": [{"at": 0, "expect": "/mode", "equals": "systemDock"}]})";
    EXPECT_EQ(runScenario(path("wrong.json"), "", ""), ExitCode::failed);
    EXPECT_EQ(runScenario(path("wrong.json"), "", path("no/such/folder")), ExitCode::rejected);
}

} // namespace
} // namespace larkspan::ui
