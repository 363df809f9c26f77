#include "bar/barTiles.h"

#include "model/ModelWorld.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace larkspan {
namespace {

/// The tiles' places, those with a dot marked by "*", those in front by "!".
std::vector<std::string> placesOf(const ModelWorld& world) {
    std::vector<std::string> lines;
    for (const auto& tile : barTiles(world.store, world.mac.displayAt(0), false)) {
        const bool isWindow = tile.section == BarTile::Section::windows;
        lines.push_back((isWindow ? "windows " + tile.id() : tile.key()) +
                        (tile.dot == BarTile::Dot::none ? "" : "*") + (tile.isFront ? "!" : ""));
    }
    return lines;
}

TEST(BarTiles, AnAppThatIsPinnedAndInTheBackgroundHasOneTile) {
    ModelWorld world;
    for (const auto* name : {"mail", "music"})
        world.mac.install(std::string("com.example.") + name, name);
    world.mac.setPinned({"com.example.mail"});
    world.start();
    const auto mail = world.launch("mail");
    world.launch("music");
    world.settle();
    EXPECT_EQ(placesOf(world),
              (std::vector<std::string>{"pinned com.apple.finder*", "pinned com.example.mail*",
                                        "background com.example.music"}));

    // A window gives it a place in a group as well; the second copy of an app is nobody's double.
    world.mac.openWindow(mail);
    const auto copy = world.launch("mail");
    world.settle();
    EXPECT_EQ(placesOf(world),
              (std::vector<std::string>{"pinned com.apple.finder*", "pinned com.example.mail",
                                        "windows com.example.mail*", "background com.example.music",
                                        "background pid:" + std::to_string(copy)}));
}

TEST(BarTiles, EachBarMarksWhatIsElsewhere) {
    ModelWorld world("1440x900 spaces=2, 1440x900");
    const DisplayId mainDisplay = world.mac.displayAt(0);
    const DisplayId otherDisplay = world.mac.displayAt(1);
    for (const auto* name : {"mail", "music", "notes"})
        world.mac.install(std::string("com.example.") + name, name);
    world.start();
    world.mac.openWindow(world.launch("notes"), {.space = world.mac.spaceAt(mainDisplay, 1)});
    world.mac.openWindow(world.launch("music"), {.display = otherDisplay});
    world.mac.openWindow(world.launch("mail"));
    world.settle();
    world.store.trashChanged(false);
    world.store.badgesChanged({{"com.example.mail", "3"}});
    const auto marks = [&](DisplayId display) {
        std::string text;
        for (const auto& tile : barTiles(world.store, display, true)) {
            if (tile.section == BarTile::Section::pinned) continue;
            const auto* trash = std::get_if<TrashTile>(&tile.payload);
            text += tile.name() + (tile.isRing ? " ring" : "") +
                    (tile.dot == BarTile::Dot::gray ? " gray" : "") +
                    (tile.isFront ? " front" : "") + " " + tile.badge +
                    (trash && !trash->isEmpty ? "full" : "") + "|";
        }
        return text;
    };
    EXPECT_EQ(marks(mainDisplay), "mail front 3|notes ring |music gray |Trash full|");
    EXPECT_EQ(marks(otherDisplay), "mail gray front 3|notes ring gray |music |Trash full|");
    EXPECT_EQ(barTiles(world.store, mainDisplay, false).back().name(), "music");
}

} // namespace
} // namespace larkspan
