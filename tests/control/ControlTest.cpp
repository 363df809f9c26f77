#include "control/Control.h"

#include "app/LaunchedApp.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

class ControlTest : public testing::Test {
  protected:
    ControlTest() {
        mac.install("com.example.notes", "Notes");
        mac.install("com.example.chess", "Chess");
        mac.setPinned({"com.example.chess"});
    }

    json state() { return json::parse(app->answer({"state"}).text); }
    ControlAnswer answer(const Words& words) { return app->answer(words); }
    ControlAnswer answerTo(const std::string& line) {
        std::string given;
        app->control.answerLine(line, [&](std::string answer) { given = std::move(answer); });
        return ControlAnswer::fromLine(given);
    }
    void launch() {
        app.emplace(mac);
        mac.scheduler.runFor(5);
    }

    sim::SimMac mac{"1440x900"};
    std::optional<LaunchedApp> app;
};

TEST_F(ControlTest, StateTellsWhatShows) {
    const auto notes = mac.launch("com.example.notes");
    mac.openWindow(notes);
    mac.openWindow(notes);
    mac.setTrash(3);
    launch();
    const auto report = state();
    const json finder{
        {"id", "com.apple.finder"}, {"name", "Finder"},    {"running", true},   {"pinned", true},
        {"launching", false},       {"pid", mac.finder()}, {"windows", 0},      {"minimized", 0},
        {"hidden", false},          {"badge", nullptr},    {"attention", false}};
    const json chess{
        {"id", "com.example.chess"}, {"name", "Chess"},  {"running", false},  {"pinned", true},
        {"launching", false},        {"pid", nullptr},   {"windows", 0},      {"minimized", 0},
        {"hidden", false},           {"badge", nullptr}, {"attention", false}};
    EXPECT_EQ(report["pinned"], json({finder, chess}));
    ASSERT_EQ(report["groups"].size(), 1U);
    const auto& group = report["groups"][0];
    EXPECT_EQ(group["display"], 1);
    EXPECT_EQ(group["items"][0]["id"], "com.example.notes");
    EXPECT_EQ(group["items"][0]["windows"], 2);
    EXPECT_EQ(report["background"], json({finder}));
    EXPECT_EQ(report["frontmost"], json({{"pid", notes}, {"id", "com.example.notes"}}));
    EXPECT_EQ(report["trashEmpty"], false);
    EXPECT_EQ(report["mode"], "vantrel");
    EXPECT_EQ(report["settings"]["style"], "island");
    EXPECT_EQ(report["settings"]["barHeight"], nullptr);
}

TEST_F(ControlTest, StateTellsWhatStandsOnABarAndWhere) {
    mac.openWindow(mac.launch("com.example.notes"));
    launch();
    const auto bar = state()["bars"][0];
    EXPECT_EQ(bar["display"], 1);
    EXPECT_EQ(bar["shown"], true);
    const auto space = mac.spaceAt(mac.displayAt(0), 0);
    const struct {
        const char* id;
        const char* section;
        json space;
        json dot;
        bool isFront;
    } tiles[] = {{"com.apple.finder", "pinned", nullptr, "first", false},
                 {"com.example.chess", "pinned", nullptr, nullptr, false},
                 {"com.example.notes", "windows", space, "first", true},
                 {"trash", "trash", nullptr, nullptr, false}};
    ASSERT_EQ(bar["tiles"].size(), std::size(tiles));
    double end = bar["frame"][0];
    for (std::size_t i = 0; i < std::size(tiles); ++i) {
        const auto& tile = bar["tiles"][i];
        EXPECT_EQ(tile["id"], tiles[i].id);
        EXPECT_EQ(tile["section"], tiles[i].section) << tiles[i].id;
        EXPECT_EQ(tile["space"], tiles[i].space) << tiles[i].id;
        EXPECT_EQ(tile["dot"], tiles[i].dot) << tiles[i].id;
        EXPECT_EQ(tile["front"], tiles[i].isFront) << tiles[i].id;
        EXPECT_GE(tile["frame"][0], end);
        EXPECT_EQ(tile["frame"][1], bar["frame"][1]);
        end = tile["frame"][0].get<double>() + tile["frame"][2].get<double>();
    }
    EXPECT_LT(end, bar["frame"][0].get<double>() + bar["frame"][2].get<double>());
}

TEST_F(ControlTest, TheTrashIsClickedAndHasItsMenu) {
    launch();
    EXPECT_EQ(answer({"click", "trash"}), ControlAnswer{});
    EXPECT_EQ(answer({"menu", "trash", "Open"}), ControlAnswer{});
    EXPECT_THAT(mac.world().opened, testing::ElementsAre("/Trash", "/Trash"));
    EXPECT_EQ(answer({"set", "showsTrash", "false"}), ControlAnswer{});
    EXPECT_EQ(answer({"click", "trash"}).code, ExitCode::rejected);
}

TEST_F(ControlTest, AClickMeansTheTileOfTheGroupThatIsNamed) {
    const auto display = mac.displayAt(0);
    mac.addSpace(display);
    const auto notes = mac.launch("com.example.notes");
    mac.openWindow(notes, {.title = "Here"});
    mac.openWindow(notes, {.title = "There", .space = mac.spaceAt(display, 1)});
    launch();
    const auto title = [&](std::size_t space) {
        const auto id = std::to_string(mac.spaceAt(display, space));
        return json::parse(answer({"menu", "com.example.notes", "--space", id}).text)[0]["title"];
    };
    EXPECT_EQ(title(0), "Here");
    EXPECT_EQ(title(1), "There");
    const auto isHiddenByClick = [&](std::size_t space) {
        const auto id = std::to_string(mac.spaceAt(display, space));
        EXPECT_EQ(answer({"click", "com.example.notes", "--display", "1", "--space", id}),
                  ControlAnswer{});
        mac.scheduler.runFor(1);
        return mac.world().app(notes)->hidden;
    };
    EXPECT_FALSE(isHiddenByClick(1)) << "its windows there are not in front";
    EXPECT_TRUE(isHiddenByClick(0));
}

TEST_F(ControlTest, WhereTheDockIsInUseAClickStillFindsItsTile) {
    launch();
    answer({"mode", "systemDock"});
    launch();
    EXPECT_EQ(state()["bars"], json::array());
    EXPECT_EQ(answer({"click", "com.example.chess"}), ControlAnswer{});
    mac.scheduler.runFor(5);
    EXPECT_EQ(state()["frontmost"]["id"], "com.example.chess");
}

TEST_F(ControlTest, StateCountsAllWindowsOfAnAppAndHungOnesCostLittle) {
    mac.addSpace(mac.displayAt(0));
    const auto notes = mac.launch("com.example.notes");
    mac.openWindow(notes);
    mac.minimize(mac.openWindow(notes));
    mac.openWindow(notes, {.space = mac.spaceAt(mac.displayAt(0), 1)});
    launch();
    const json item = state()["groups"][0]["items"][0];
    EXPECT_EQ(item["windows"], 3);
    EXPECT_EQ(item["minimized"], 1);
    mac.hang(notes);
    const double start = mac.scheduler.uptime();
    EXPECT_EQ(state()["groups"][0]["items"][0]["windows"], 2) << "what the window list knows";
    EXPECT_LT(mac.scheduler.uptime() - start, 1);
}

TEST_F(ControlTest, AClickLaunchesBringsForwardAndSendsAway) {
    launch();
    EXPECT_EQ(answer({"click", "com.example.chess"}), ControlAnswer{});
    EXPECT_EQ(state()["pinned"][1]["launching"], true);
    mac.scheduler.runFor(5);
    EXPECT_EQ(state()["frontmost"]["id"], "com.example.chess");
    EXPECT_EQ(answer({"click", "com.example.chess"}), ControlAnswer{});
    mac.scheduler.runFor(5);
    EXPECT_EQ(state()["pinned"][1]["hidden"], true);
}

TEST_F(ControlTest, AClickTakesWhatIsHeldDownWithIt) {
    mac.openWindow(mac.launch("com.example.notes"));
    mac.openWindow(mac.launch("com.example.chess"));
    launch();
    EXPECT_EQ(answer({"click", "com.example.notes", "--option", "--command"}), ControlAnswer{});
    mac.scheduler.runFor(1);
    EXPECT_EQ(state()["pinned"][1]["hidden"], true);
    EXPECT_EQ(answer({"click", "com.example.notes", "--command"}), ControlAnswer{});
    EXPECT_THAT(mac.world().revealed, testing::ElementsAre("/Applications/Notes.app"));
    const auto processes = mac.world().apps.size();
    EXPECT_EQ(answer({"click", "com.example.notes", "--new-instance"}), ControlAnswer{});
    EXPECT_EQ(mac.world().apps.size(), processes + 1);
}

TEST_F(ControlTest, TheMenuIsPrintedAndChosenFrom) {
    mac.minimize(mac.openWindow(mac.launch("com.example.notes"), {.title = "Letter"}));
    launch();
    const auto lines = json::parse(answer({"menu", "com.example.notes"}).text);
    EXPECT_EQ(lines[0], json({{"title", "Letter"}, {"enabled", true}, {"mark", "diamond"}}));
    EXPECT_EQ(lines[1], nullptr);
    EXPECT_EQ(lines[2]["lines"][0]["title"], "Keep in Dock");
    EXPECT_EQ(lines.back()["option"], "Force Quit");
    EXPECT_EQ(answer({"menu", "com.example.notes", "Keep in Dock"}), ControlAnswer{});
    EXPECT_EQ(state()["pinned"][2]["id"], "com.example.notes");
    EXPECT_EQ(answer({"menu", "com.example.notes", "Force Quit"}), ControlAnswer{});
    EXPECT_EQ(mac.pidOf("com.example.notes"), 0);
}

TEST_F(ControlTest, FilesAreOpenedWithAnAppThatDoesNotRunYet) {
    launch();
    EXPECT_EQ(answer({"open", "com.example.notes", "/tmp/letter", "x-note:1"}), ControlAnswer{});
    mac.scheduler.runFor(1);
    EXPECT_THAT(mac.world().opened, testing::ElementsAre("/tmp/letter", "x-note:1"));
    EXPECT_EQ(state()["frontmost"]["id"], "com.example.notes");
}

TEST_F(ControlTest, EverySettingIsLiveAndStored) {
    struct Case {
        const char* key;
        const char* value;
        json reads;
    };
    const Case cases[] = {
        {"style", "bar", "bar"},
        {"glass", "regular", "regular"},
        {"glassBlur", "3", 3.0},
        {"islandRoundness", "0.25", 0.25},
        {"islandInset", "8", 8.0},
        {"islandPadding", "20", 20.0},
        {"dotColorRGBA", "1,0.5,0,1", {1.0, 0.5, 0.0, 1.0}},
        {"dotGrayRGBA", "default", nullptr},
        {"tools", "xcode,clipboard", {"clipboard", "xcode", "settings"}},
        {"showsTrash", "false", false},
        {"barHeight", "60", 60.0},
        {"previewsSingleWindows", "false", false},
    };
    launch();
    for (const auto& [key, value, reads] : cases) {
        EXPECT_EQ(answer({"set", key, value}), ControlAnswer{}) << key;
        EXPECT_EQ(state()["settings"][key], reads) << key;
    }
    EXPECT_EQ(state()["settings"].size(), std::size(cases));
    EXPECT_EQ(state()["bars"][0]["frame"], json({0, 0, 1440, 60}));
    EXPECT_EQ(answer({"get", "glassBlur"}).text, "3.0");
    EXPECT_EQ(answer({"get", "style"}).text, "bar");
    const auto before = state()["settings"];
    app.reset();
    launch();
    EXPECT_EQ(state()["settings"], before);
    EXPECT_EQ(answer({"reset-appearance"}), ControlAnswer{});
    EXPECT_EQ(state()["settings"]["style"], "island");
    EXPECT_EQ(state()["settings"]["barHeight"], 60.0);
}

TEST_F(ControlTest, WhatMakesNoSenseChangesNothing) {
    launch();
    const Words cases[] = {
        {},
        {"dance"},
        {"state", "now"},
        {"click"},
        {"click", "com.apple.finder", "--shift"},
        {"menu", "com.example.nowhere"},
        {"menu", "com.apple.finder", "Dance"},
        {"menu", "com.apple.finder", "Options"},
        {"menu", "com.apple.finder", "Dance", "Sing"},
        {"click", "com.apple.finder", "--space"},
        {"click", "com.apple.finder", "--space", "first"},
        {"click", "com.apple.finder", "--space", "1"},
        {"click", "com.apple.finder", "--display", "7"},
        {"open", "com.apple.finder"},
        {"open", "com.example.nowhere", "/tmp/letter"},
        {"open", "com.example.notes", "letter"},
        {"click", "com.example.nowhere"},
        {"mode", "dock"},
        {"get", "colour"},
        {"set", "style"},
        {"set", "colour", "red"},
        {"set", "glassBlur", "2.9"},
        {"get", "mode"},
        {"set", "mode", "systemDock"},
        {"move-window", "1"},
        {"move-window", "first", "2"},
        {"move-window", "0x", "2"},
        {"move-window", "1", "2nd"},
        {"log", "/tmp/log", "again"},
        {"pin", "com.example.nowhere"},
        {"unpin", "com.example.notes"},
        {"unpin", "com.apple.finder"},
    };
    const auto before = state();
    for (const auto& words : cases) {
        const auto refused = answer(words);
        EXPECT_EQ(refused.code, ExitCode::rejected) << testing::PrintToString(words);
        EXPECT_NE(refused.text, "") << testing::PrintToString(words);
    }
    EXPECT_EQ(state(), before);
}

TEST_F(ControlTest, PinAndUnpinChangeThePinnedApps) {
    launch();
    const auto pinned = [this] {
        std::string ids;
        const auto report = state();
        for (const auto& item : report["pinned"])
            ids += item["id"].get<std::string>() + " ";
        return ids;
    };
    EXPECT_EQ(answer({"pin", "com.example.notes"}), ControlAnswer{});
    EXPECT_EQ(answer({"pin", "com.example.notes"}), ControlAnswer{});
    EXPECT_EQ(pinned(), "com.apple.finder com.example.chess com.example.notes ");
    EXPECT_EQ(answer({"unpin", "com.example.chess"}), ControlAnswer{});
    EXPECT_EQ(pinned(), "com.apple.finder com.example.notes ");
}

TEST_F(ControlTest, ModeReopenAndQuitReachTheProgram) {
    launch();
    EXPECT_EQ(answer({"mode", "systemDock"}), ControlAnswer{});
    EXPECT_EQ(answer({"mode"}).text, "systemDock");
    EXPECT_EQ(state()["bars"][0]["shown"], false);
    EXPECT_EQ(answer({"reopen"}), ControlAnswer{});
    EXPECT_EQ(answer({"mode"}).text, "vantrel");
    answer({"mode", "systemDock"});
    EXPECT_EQ(answer({"mode", "bar"}), ControlAnswer{});
    EXPECT_EQ(answer({"mode"}).text, "vantrel");
    EXPECT_EQ(answer({"quit"}), ControlAnswer{});
    EXPECT_TRUE(mac.application.isTerminating);
}

TEST_F(ControlTest, FocusNeedsABarThatShows) {
    launch();
    app->takeCalls();
    EXPECT_EQ(answer({"focus"}), ControlAnswer{});
    EXPECT_THAT(app->takeCalls(), testing::ElementsAre("keyboard 1"));
    answer({"mode", "systemDock"});
    EXPECT_EQ(answer({"focus"}).code, ExitCode::rejected);
}

TEST_F(ControlTest, LinesCarryRequestsAndAnswers) {
    launch();
    const auto line = Control::requestLine({"get", "a\nb \"c\""});
    EXPECT_EQ(line.find('\n'), std::string::npos);
    EXPECT_EQ(answerTo(line),
              (ControlAnswer{ExitCode::rejected, "there is no setting named a\nb \"c\""}));
    for (const auto* nonsense : {"", "state", "{}", "[1]", "[\"state\""})
        EXPECT_EQ(answerTo(nonsense).code, ExitCode::rejected) << nonsense;
    EXPECT_EQ(ControlAnswer::fromLine("").code, ExitCode::failed);
    EXPECT_EQ(ControlAnswer::fromLine(R"({"code":"0","text":""})").code, ExitCode::failed);
}

TEST_F(ControlTest, ANameThatIsNoTextDoesNotBreakTheReport) {
    mac.install("com.example.odd", "caf\xe9");
    mac.openWindow(mac.launch("com.example.odd"));
    launch();
    EXPECT_EQ(state()["groups"][0]["items"][0]["name"], "caf\xEF\xBF\xBD");
}

} // namespace
} // namespace larkspan
