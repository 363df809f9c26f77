#include "adapters/qt/BitmapImage.h"
#include "adapters/qt/PictureFile.h"

#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"

#include <QImage>

#include <gtest/gtest.h>

namespace larkspan::qt {
namespace {

constexpr std::uint32_t red = 0xffff0000;
constexpr std::uint32_t blue = 0xff0000ff;
constexpr std::uint32_t green = 0xff00ff00;

Bitmap filled(int width, int height, std::uint32_t colour) {
    const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<std::uint32_t>(count, colour)};
}

std::uint32_t pixel(const Bitmap& bitmap, int x, int y) {
    return bitmap.pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(bitmap.width) +
                         static_cast<std::size_t>(x)];
}

class PictureTest : public testing::Test {
  protected:
    void SetUp() override { testApplication(); }

    PictureFile::File savePicture(const std::string& name, int width, int height, QRgb colour) {
        QImage picture(width, height, QImage::Format_ARGB32);
        picture.fill(colour);
        picture.save(QString::fromStdString(folder_.path(name)), "PNG");
        return {.path = folder_.path(name), .pixels = width};
    }

    TemporaryFolder folder_;
};

TEST_F(PictureTest, ABitmapIsDrawnFromTheBestSize) {
    const BitmapImage image(
        "icon",
        {filled(64, 64, blue), filled(16, 16, red), {}, {8, 8, {1, 2}}, filled(128, 128, green)});
    struct Case {
        int pixels;
        std::uint32_t colour;
    };
    for (const auto& each : {Case{1, red}, Case{16, red}, Case{17, blue}, Case{64, blue},
                             Case{65, green}, Case{128, green}, Case{300, green}}) {
        const auto drawn = image.bitmap(each.pixels);
        ASSERT_EQ(drawn.width, each.pixels);
        ASSERT_EQ(drawn.height, each.pixels);
        EXPECT_EQ(pixel(drawn, each.pixels / 2, each.pixels / 2), each.colour) << each.pixels;
    }
    EXPECT_TRUE(image.bitmap(0).isEmpty());
    EXPECT_TRUE(BitmapImage("none", {}).bitmap(32).isEmpty());
}

TEST_F(PictureTest, ProportionsAreKept) {
    const auto drawn = BitmapImage("wide", {filled(80, 20, red)}).bitmap(40);
    EXPECT_EQ(pixel(drawn, 20, 20), red);
    EXPECT_EQ(pixel(drawn, 20, 4), 0u);
    EXPECT_EQ(pixel(drawn, 20, 35), 0u);
    EXPECT_EQ(pixel(drawn, 0, 20), red);
}

TEST_F(PictureTest, TheFileOfTheRightSizeIsUsed) {
    const PictureFile image("icon",
                            {savePicture("16", 16, 16, red), savePicture("48", 48, 48, blue),
                             savePicture("256", 256, 256, green)});
    EXPECT_EQ(pixel(image.bitmap(16), 8, 8), red);
    EXPECT_EQ(pixel(image.bitmap(40), 20, 20), blue);
    EXPECT_EQ(pixel(image.bitmap(64), 30, 30), green);
    EXPECT_EQ(pixel(image.bitmap(512), 256, 256), green);
}

TEST_F(PictureTest, ColoursArePremultiplied) {
    savePicture("half.png", 4, 4, qRgba(255, 0, 0, 128));
    EXPECT_EQ(pixel(PictureFile(folder_.path("half.png")).bitmap(4), 1, 1), 0x80800000u);
}

TEST_F(PictureTest, AVectorImageIsSharpAtAnySize) {
    folder_.write("half.svg", R"(<svg xmlns="http://www.w3.org/2000/svg" width="16" height="16">
        <rect width="8" height="16" fill="#f00"/></svg>)");
    const auto drawn = PictureFile(folder_.path("half.svg")).bitmap(200);
    ASSERT_EQ(drawn.width, 200) << "Qt's SVG plug-in is needed";
    EXPECT_EQ(pixel(drawn, 99, 100), red);
    EXPECT_EQ(pixel(drawn, 101, 100), 0u);
}

TEST_F(PictureTest, UnreadableFilesFallBackToTheOthers) {
    const auto good = savePicture("good", 8, 8, red);
    const auto broken = folder_.write("broken.png", "\x89PNG\r\n\x1a\n and no more");
    const auto brokenDrawing = folder_.write("broken.svg", "<svg");
    const PictureFile image("icon", {{broken, 32, false}, {brokenDrawing, 0, true}, good});
    EXPECT_EQ(pixel(image.bitmap(32), 16, 16), red);
    EXPECT_TRUE(PictureFile(broken).bitmap(32).isEmpty());
    EXPECT_TRUE(PictureFile(folder_.path("absent.png")).bitmap(32).isEmpty());
}

} // namespace
} // namespace larkspan::qt
