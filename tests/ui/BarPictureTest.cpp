#include "ui/BarOnScreen.h"

#include <QDir>
#include <QGuiApplication>

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

/// With LARKSPAN_PICTURES set to a folder, the pictures that the tests look at are kept there.
void keep(const QImage& picture, const char* name) {
    const QByteArray folder = qgetenv("LARKSPAN_PICTURES");
    if (!folder.isEmpty()) picture.save(QDir(folder).filePath(QString(name) + ".png"));
}

const std::vector<std::string> fewApps{"Mail", "Notes", "Terminal", "Music", "Browser"};

} // namespace

TEST(BarPicture, IslandIsAsWideAsItsTiles) {
    BarOnScreen bar;
    for (const char* name : {"Safari", "Photos", "Maps", "Calendar"}) {
        bar.mac.install(std::string("com.example.") + name, name);
        bar.mac.pin(std::string("com.example.") + name);
    }
    bar.openApps(fewApps);
    bar.start();
    keep(bar.picture(), "island-light");
    bar.panels().appearance().set({.isDark = true, .reducesMotion = true});
    keep(bar.picture(), "island-dark");
    bar.app.look().glass.set(GlassKind::regular);
    bar.settle();
    keep(bar.picture(), "island-dark-frosted");
    bar.panels().appearance().set({.reducesMotion = true});
    keep(bar.picture(), "island-light-frosted");
    bar.app.look().style.set(BarStyle::bar);
    bar.settle();
    keep(bar.picture(), "band-light-frosted");
    bar.app.look().glass.set(GlassKind::clear);
    bar.settle();
    keep(bar.picture(), "band-light");
    bar.panels().appearance().set({.isDark = true, .reducesMotion = true});
    keep(bar.picture(), "band-dark");
    const Rect frame = bar.panel().barFrame();
    EXPECT_GT(frame.width, 0);
}

} // namespace larkspan::ui
