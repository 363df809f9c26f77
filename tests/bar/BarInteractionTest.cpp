#include "bar/BarInteraction.h"

#include "bar/BarWorld.h"

#include <gmock/gmock.h>

namespace larkspan {
namespace {

using testing::ElementsAre;
using testing::Optional;

/// One bar with Finder, Mail and Notes pinned, a window of Mail, and the Trash.
class BarInteractionTest : public testing::Test, protected BarWorld {
  protected:
    BarInteractionTest() {
        for (const auto* name : {"mail", "notes"})
            mac.install(std::string("com.example.") + name, name);
        mac.setPinned({"com.example.mail", "com.example.notes"});
        mac.openWindow(launch("mail"), {.title = "Inbox"});
        start();
        settle();
        bar = makeInteraction();
        bar->place(mac.platform().screens.screens().front(), {1440, 72});
        bar->setShown(true);
    }
    std::vector<std::string> keys() const {
        std::vector<std::string> keys;
        for (const auto& tile : bar->tiles())
            keys.push_back(tile.key());
        return keys;
    }
    int tileOf(const std::string& key) const {
        for (std::size_t i = 0; i < bar->tiles().size(); ++i)
            if (bar->tiles()[i].key().starts_with(key)) return static_cast<int>(i);
        return BarInteraction::noTile;
    }
    int lit() const { return *bar->litTile; }
    RecordingPopups& shown() { return panels.shown; }

    static constexpr int last = 4;
    std::unique_ptr<BarInteraction> bar;
};

TEST_F(BarInteractionTest, KeysWalkOverTheTiles) {
    struct Case {
        int from;
        BarKey key;
        int to;
        int toMirrored;
    };
    const Case cases[] = {
        {1, BarKey::right, 2, 0},   {1, BarKey::left, 0, 2},
        {0, BarKey::left, last, 1}, {last, BarKey::right, 0, last - 1},
        {last, BarKey::next, 0, 0}, {0, BarKey::previous, last, last},
        {2, BarKey::first, 0, 0},   {2, BarKey::last, last, last},
    };
    ASSERT_EQ(bar->tiles().size(), std::size_t{last} + 1);
    EXPECT_FALSE(bar->press(BarKey::right)) << "the keys are somebody else's";
    bar->setKeyboard(true);
    EXPECT_EQ(lit(), 0);
    for (const bool isMirrored : {false, true}) {
        bar->setMirrored(isMirrored);
        for (const auto& each : cases) {
            bar->press(BarKey::first);
            for (int i = 0; i < each.from; ++i)
                bar->press(BarKey::next);
            EXPECT_TRUE(bar->press(each.key));
            EXPECT_EQ(lit(), isMirrored ? each.toMirrored : each.to)
                << each.from << " by " << static_cast<int>(each.key);
        }
    }
}

TEST_F(BarInteractionTest, LettersGoToTheNextNameAndStayWhereThereIsNone) {
    bar->setKeyboard(true);
    const auto walk = [this](char letter) {
        EXPECT_TRUE(bar->walkTo([=](const std::string& name) { return name[0] == letter; }));
        return lit();
    };
    EXPECT_EQ(walk('m'), tileOf("pinned com.example.mail"));
    EXPECT_EQ(walk('m'), tileOf("windows"));
    EXPECT_EQ(walk('x'), tileOf("windows"));
    EXPECT_EQ(walk('m'), tileOf("pinned com.example.mail")) << "around the end";
}

TEST_F(BarInteractionTest, ReturnClicksAndGivesTheKeyboardBack) {
    bar->setKeyboard(true);
    bar->press(BarKey::last);
    EXPECT_TRUE(store.isPointerOnBar()) << "tiles stay while keys walk over them";
    bar->press(BarKey::click);
    EXPECT_EQ(trashOpened, 1);
    EXPECT_FALSE(*bar->hasKeyboard);
    EXPECT_EQ(lit(), BarInteraction::noTile);
    EXPECT_FALSE(store.isPointerOnBar());
}

TEST_F(BarInteractionTest, TheLightOfTheKeyboardStaysWhenItsTileGoes) {
    bar->setKeyboard(true);
    bar->press(BarKey::last);
    look.showsTrash.set(false);
    settle();
    EXPECT_EQ(lit(), last - 1);
    EXPECT_TRUE(bar->press(BarKey::leave));
}

TEST_F(BarInteractionTest, TheLightFollowsItsTile) {
    bar->hover(last, true);
    mac.openWindow(launch("notes"));
    settle();
    EXPECT_EQ(lit(), last + 1);
    EXPECT_EQ(shown().label, "Trash");
    EXPECT_EQ(shown().labelAnchor, bar->frameOfTile(last + 1));
    look.showsTrash.set(false);
    settle();
    EXPECT_EQ(lit(), BarInteraction::noTile);
    EXPECT_EQ(shown().label, std::nullopt);
}

TEST_F(BarInteractionTest, TheLabelGoesWithTheLightAClickAndAMenu) {
    const auto showLabel = [this] {
        bar->hover(1, false);
        bar->hover(1, true);
        return shown().label;
    };
    EXPECT_THAT(showLabel(), Optional(std::string("mail")));
    bar->hover(1, false);
    EXPECT_EQ(shown().label, std::nullopt);
    showLabel();
    bar->click(1);
    settle();
    EXPECT_EQ(shown().label, std::nullopt) << "also after what came of the click";
    showLabel();
    bar->openTileMenu(last);
    EXPECT_EQ(shown().label, std::nullopt);
    EXPECT_EQ(showLabel(), std::nullopt) << "none shows beside the menu";
}

TEST_F(BarInteractionTest, TheLabelOfTheNextBarStaysWhenTheLastOneIsLeft) {
    const auto next = makeInteraction();
    next->place(bar->screen(), {1440, 72});
    next->setShown(true);
    bar->hover(0, true);
    next->hover(1, true);
    bar->hover(0, false);
    EXPECT_THAT(shown().label, Optional(std::string("mail")));
}

TEST_F(BarInteractionTest, AnOpenMenuHoldsTheTilesWhereverThePointerIs) {
    bar->setPointerInside(true);
    bar->openTileMenu(tileOf("windows"));
    settle();
    EXPECT_THAT(shown().lines, Optional(testing::SizeIs(testing::Gt(3U))));
    EXPECT_EQ(shown().menuAnchor, bar->frameOfTile(tileOf("windows")));
    bar->setPointerInside(false);
    const auto before = keys();
    for (const auto& window : mac.world().windows)
        mac.closeWindow(window.id);
    settle();
    EXPECT_EQ(keys(), before);
    shown().closeMenu();
    settle();
    EXPECT_EQ(tileOf("windows"), BarInteraction::noTile);
}

TEST_F(BarInteractionTest, AMenuBelongsToItsBar) {
    const auto other = makeInteraction();
    bar->openBarMenu(100);
    EXPECT_EQ(shown().lines->front().title, "Style");
    other->setShown(false);
    EXPECT_TRUE(overlay->isMenuOpen());
    bar.reset();
    EXPECT_EQ(shown().lines, std::nullopt);
    EXPECT_FALSE(store.isPointerOnBar());
}

TEST_F(BarInteractionTest, AMenuOpenedByKeyIsLitAndALineOfItGivesTheKeyboardBack) {
    bar->setKeyboard(true);
    bar->press(BarKey::last);
    bar->press(BarKey::tileMenu);
    EXPECT_TRUE(shown().isFirstLit);
    EXPECT_TRUE(*bar->hasKeyboard);
    EXPECT_FALSE(overlay->chooseLine("Empty Trash"));
    EXPECT_TRUE(overlay->chooseLine("Open"));
    EXPECT_EQ(trashOpened, 1);
    EXPECT_FALSE(*bar->hasKeyboard);
    EXPECT_EQ(shown().lines, std::nullopt);
}

TEST_F(BarInteractionTest, ABurstOfChangesIsShownOnceWithItsAnimation) {
    int changes = 0;
    const Handle handle = bar->contents.observe([&changes] { ++changes; });
    store.setPinned({"com.example.notes"});
    look.showsTrash.set(false);
    store.trashChanged(false);
    EXPECT_EQ(changes, 0);
    settle();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(bar->animation(), pinnedListAnimation);
    store.badgesChanged({{"com.example.notes", "1"}});
    settle();
    EXPECT_EQ(bar->animation(), windowReadAnimation);
}

TEST_F(BarInteractionTest, KeysScrollTheirTileIntoView) {
    std::vector<std::string> pins;
    for (int i = 0; i < 80; ++i) {
        pins.push_back("com.example.app" + std::to_string(i));
        mac.install(pins.back(), "App");
    }
    mac.setPinned(pins);
    mac.scheduler.runFor(3);
    ASSERT_TRUE(bar->layout().scrolls());
    const auto isInView = [this] {
        const Rect tile = bar->layout().tileFrame(static_cast<std::size_t>(lit()), *bar->scrollX);
        return tile.x >= bar->layout().viewX &&
               tile.maxX() <= bar->layout().viewX + bar->layout().viewWidth;
    };
    bar->scrollPage(false);
    EXPECT_EQ(*bar->scrollX, 0);
    bar->scrollPage(true);
    EXPECT_GT(*bar->scrollX, 0);
    bar->scrollBy(100'000);
    EXPECT_EQ(*bar->scrollX, bar->layout().scrollRange());
    bar->setKeyboard(true);
    EXPECT_TRUE(isInView());
    bar->press(BarKey::last);
    EXPECT_TRUE(isInView());
    mac.setPinned({});
    mac.scheduler.runFor(3);
    EXPECT_EQ(*bar->scrollX, 0) << "what has become short is not scrolled";
    EXPECT_TRUE(isInView());
}

} // namespace
} // namespace larkspan
