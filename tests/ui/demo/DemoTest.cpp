#include "ui/demo/Demo.h"

#include "ui/Environment.h"

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

TEST_F(DemoTest, TheTourWritesItsPicturesAndItsState) {
    files::create_directories(folder_);
    ASSERT_EQ(runScenario(LARKSPAN_DEMO_FOLDER "/tour.json", path("pictures"), path("state.json")),
              0);
    int pictures = 0;
    for (const auto& file : files::directory_iterator(folder_ / "pictures")) {
        const QImage picture(QString::fromStdString(file.path()));
        EXPECT_GT(colorCount(picture), 40U) << file.path();
        ++pictures;
    }
    EXPECT_EQ(pictures, 7);
    std::ifstream stream(path("state.json"));
    const auto state = nlohmann::json::parse(stream, nullptr, false);
    EXPECT_EQ(state.value("running", true), false);
}

TEST_F(DemoTest, SaysByItsCodeWhatWentWrong) {
    files::create_directories(folder_);
    EXPECT_EQ(runScenario(path("none.json"), "", ""), 2);
    std::ofstream(path("wrong.json"))
        << R"({"steps": [{"at": 0, "expect": "/mode", "equals": "systemDock"}]})";
    EXPECT_EQ(runScenario(path("wrong.json"), "", ""), 1);
    EXPECT_EQ(runScenario(path("wrong.json"), "", path("no/such/folder")), 2);
}

} // namespace
} // namespace larkspan::ui
