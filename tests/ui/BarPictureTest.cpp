#include "ui/BarOnScreen.h"
#include "ui/keepPicture.h"

#include <gtest/gtest.h>

namespace larkspan::ui {

namespace {

/// The average lightness, 0...255, of a part of the picture.
int lightness(const QImage& picture, const QRectF& part) {
    const QRect area = part.toRect();
    qint64 sum = 0;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            sum += qGray(picture.pixel(x, y));
    return static_cast<int>(sum / (area.width() * area.height()));
}

/// A piece of glass in the island's leading end, beside all tiles.
QRectF freeGlass(BarOnScreen& bar) {
    const QRectF glass = bar.model().glass();
    return {glass.left() + 3, glass.center().y() - 8, 6, 16};
}

class BarPicture : public testing::Test {
  protected:
    void SetUp() override {
        bar.openApps({"Mail", "Notes", "Terminal", "Music"});
        bar.start();
    }
    void look(bool isDark) {
        bar.appearance.set({.isDark = isDark, .reducesMotion = true});
        bar.settle();
    }
    BarOnScreen bar;
};

} // namespace

TEST_F(BarPicture, GlassFollowsLightAndDark) {
    look(false);
    const QImage light = bar.picture();
    keepPicture(light, "island-light");
    look(true);
    const QImage dark = bar.picture();
    keepPicture(dark, "island-dark");
    EXPECT_GT(lightness(light, freeGlass(bar)), lightness(dark, freeGlass(bar)) + 50);
}

TEST_F(BarPicture, FrostedGlassHidesMoreOfTheDesktop) {
    look(false);
    const int clear = lightness(bar.picture(), freeGlass(bar));
    bar.app.look().glass.set(GlassKind::regular);
    bar.settle();
    keepPicture(bar.picture(), "island-frosted");
    EXPECT_GT(lightness(bar.picture(), freeGlass(bar)), clear + 10);
}

TEST_F(BarPicture, BandReachesBothEdges) {
    bar.app.look().style.set(BarStyle::bar);
    bar.settle();
    const QImage picture = bar.picture();
    keepPicture(picture, "band");
    EXPECT_NE(qAlpha(picture.pixel(0, 40)), 0);
    EXPECT_NE(qAlpha(picture.pixel(picture.width() - 1, 40)), 0);
}

TEST_F(BarPicture, ATileShowsInItsFirstFrame) {
    bar.appearance.set({});
    const QImage before = bar.picture();
    bar.openApps({"Zebra"});
    bar.mac.scheduler.runFor(1);
    const QImage after = bar.picture();
    const Rect zebra = bar.bar().frameOfTile(bar.tileOf("Zebra"));
    const QRect tile = QRectF(zebra.x, 0, zebra.width, zebra.height).toRect();
    EXPECT_NE(before.copy(tile), after.copy(tile));
}

TEST_F(BarPicture, ABadgeStandsOnTheCornerOfItsTile) {
    const auto setBadge = [this](const char* name, const char* text) {
        for (const auto& app : bar.mac.world().apps)
            if (app.name == name) bar.mac.setBadge(app.pid, text);
        bar.mac.scheduler.runFor(1.1);
    };
    const auto red = [](const QImage& picture) {
        int pixels = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                pixels += picture.pixelColor(x, y) == QColor("#d92b2b") ? 1 : 0;
        return pixels;
    };
    for (const bool isDark : {false, true}) {
        look(isDark);
        const int before = red(bar.picture());
        setBadge("Mail", "5");
        look(isDark);
        const int one = red(bar.picture());
        EXPECT_GT(one, before + 80);
        setBadge("Notes", "12345");
        setBadge("Music", "Offline mode");
        look(isDark);
        EXPECT_GT(red(bar.picture()), 3 * one - 2 * before) << "longer ones are wider";
        keepPicture(bar.picture(), isDark ? "badges-dark" : "badges-light");
        for (const char* name : {"Mail", "Notes", "Music"})
            setBadge(name, "");
        look(isDark);
        EXPECT_EQ(red(bar.picture()), before);
    }
}

} // namespace larkspan::ui
