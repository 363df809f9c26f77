#include "adapters/freedesktop/icons/IconTheme.h"

#include "adapters/freedesktop/DesktopFolders.h"

#include <QImage>

namespace larkspan::freedesktop {
namespace {

class IconThemeTest : public DesktopFolders {
  protected:
    void saveIcon(const std::string& name, int side, QRgb colour) {
        const std::string path = folder_.path("data/" + name);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        QImage picture(side, side, QImage::Format_ARGB32);
        picture.fill(colour);
        ASSERT_TRUE(picture.save(QString::fromStdString(path), "PNG"));
    }
    void saveTheme(const std::string& name, const std::string& inherits) {
        folder_.write("data/icons/" + name + "/index.theme",
                      "[Icon Theme]\nName=" + name + "\nInherits=" + inherits + R"(
Directories=16x16/apps,48x48/apps,48x48/mimetypes,24x24@2x/apps,scalable/apps,gone/apps
[16x16/apps]
Size=16
Context=Applications
Type=Fixed
[48x48/apps]
Size=48
Context=Applications
[48x48/mimetypes]
Size=48
Context=MimeTypes
[24x24@2x/apps]
Size=24
Scale=2
Context=Applications
[scalable/apps]
Size=64
Type=Scalable
Context=Applications
)");
    }
    static std::uint32_t colour(const ImageRef& image, int pixels) {
        const Bitmap bitmap = image ? image->bitmap(pixels) : Bitmap{};
        const auto side = static_cast<std::size_t>(bitmap.width);
        return bitmap.isEmpty() ? 0 : bitmap.pixels[side * (side / 2) + side / 2];
    }

    static constexpr std::uint32_t red = 0xffff0000;
    static constexpr std::uint32_t green = 0xff00ff00;
    static constexpr std::uint32_t blue = 0xff0000ff;
};

TEST_F(IconThemeTest, SizesThenInheritedThemesThenTheCommonOneThenPixmaps) {
    saveTheme("Mine", "Parent,hicolor,Mine");
    saveTheme("Parent", "Grandparent,Mine");
    saveTheme("Grandparent", "");
    saveTheme("hicolor", "");
    saveIcon("icons/Mine/16x16/apps/editor.png", 16, red);
    saveIcon("icons/Mine/48x48/apps/editor.png", 48, blue);
    saveIcon("icons/hicolor/48x48/apps/editor.png", 48, green);
    saveIcon("icons/Grandparent/48x48/apps/old.png", 48, red);
    saveIcon("icons/hicolor/48x48/apps/old.png", 48, green);
    saveIcon("icons/hicolor/48x48/apps/common.png", 48, green);
    saveIcon("pixmaps/common.png", 48, red);
    saveIcon("pixmaps/plain.png", 32, blue);
    saveIcon("own.png", 32, red);
    folder_.write("data/icons/hicolor/scalable/apps/drawn.svg",
                  R"(<svg xmlns="http://www.w3.org/2000/svg" width="8" height="8">)"
                  R"(<rect width="8" height="8" fill="#00f"/></svg>)");
    const IconTheme theme(environment_, "Mine");
    struct Case {
        std::string name;
        int pixels;
        std::uint32_t colour;
    };
    const Case cases[] = {
        {"editor", 16, red},
        {"editor", 20, blue},
        {"editor", 128, blue},
        {"editor.png", 48, blue},
        {"old", 48, red},
        {"common", 48, green},
        {"plain", 48, blue},
        {"drawn", 300, blue},
        {folder_.path("data/own.png"), 48, red},
        {folder_.path("data/none.png"), 48, 0},
        {"unknown", 48, 0},
        {"", 48, 0},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(colour(theme.icon(each.name), each.pixels), each.colour)
            << each.name << " at " << each.pixels;
    }
    EXPECT_EQ(theme.icon("editor"), theme.icon("editor"));
}

TEST_F(IconThemeTest, IconsOfApplicationsBeforeOthersOfTheName) {
    saveTheme("hicolor", "");
    saveIcon("icons/hicolor/48x48/mimetypes/tool.png", 48, red);
    saveIcon("icons/hicolor/48x48/mimetypes/only-type.png", 48, red);
    saveIcon("icons/hicolor/24x24@2x/apps/tool.png", 48, green);
    const IconTheme theme(environment_);
    EXPECT_EQ(colour(theme.icon("tool"), 48), green);
    EXPECT_EQ(colour(theme.icon("only-type"), 48), red);
}

TEST_F(IconThemeTest, UsesTheThemeOfTheDesktop) {
    saveTheme("Chosen", "");
    saveTheme("Adwaita", "");
    saveIcon("icons/Chosen/48x48/apps/editor.png", 48, red);
    saveIcon("icons/Adwaita/48x48/apps/editor.png", 48, green);
    EXPECT_EQ(colour(IconTheme(environment_).icon("editor"), 48), green);
    folder_.write("home/.config/gtk-3.0/settings.ini",
                  "[Settings]\ngtk-theme-name=Other\ngtk-icon-theme-name=Chosen\n");
    EXPECT_EQ(colour(IconTheme(environment_).icon("editor"), 48), red);
}

TEST_F(IconThemeTest, WithoutAThemeThereIsAGenericIcon) {
    const auto image = IconTheme(environment_).genericApplication();
    ASSERT_TRUE(image);
    for (const int pixels : {1, 16, 48, 512}) {
        EXPECT_EQ(image->bitmap(pixels).width, pixels);
    }
    EXPECT_NE(colour(image, 64), 0u);
    EXPECT_EQ(image->identity(), IconTheme(environment_).genericApplication()->identity());
}

} // namespace
} // namespace larkspan::freedesktop
