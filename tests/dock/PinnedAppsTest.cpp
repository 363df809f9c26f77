#include "dock/PinnedApps.h"
#include "platform/ApplicationControl.h"
#include "platform/DockPreferences.h"

#include <gmock/gmock.h>

#include <map>

namespace larkspan {
namespace {

using Array = PropertyValue::Array;
using Dictionary = PropertyValue::Dictionary;
using testing::ElementsAre;

class MemoryPreferences : public DockPreferences {
  public:
    bool synchronize() override { return true; }
    std::optional<PropertyValue> copyAppValue(std::string_view key) const override {
        const auto found = values.find(std::string(key));
        return found == values.end() ? std::nullopt : std::optional(found->second);
    }
    void setAppValue(std::string_view key, PropertyValue value) override {
        values[std::string(key)] = std::move(value);
    }
    std::map<std::string, PropertyValue> values;
};

/// Two Docks are running, and the apps "a" to "z" are installed.
class TwoDocks : public Workspace, public ApplicationControl {
  public:
    std::vector<RunningApplication> runningApplications() const override {
        return {{.pid = 5, .bundleIdentifier = "com.apple.finder"},
                {.pid = 7, .bundleIdentifier = "com.apple.dock"},
                {.pid = 9, .bundleIdentifier = "com.apple.dock"}};
    }
    std::optional<RunningApplication> frontmostApplication() const override { return {}; }
    bool hasProcess(ProcessId) const override { return true; }
    std::optional<std::string> urlForApplication(std::string_view identifier) const override {
        if (identifier.size() != 1) return std::nullopt;
        return "/Apps/My " + std::string(identifier) + ".app";
    }
    std::string displayName(std::string_view url) const override {
        return std::string(url.substr(url.rfind('/') + 1));
    }
    ImageRef icon(std::string_view) const override { return nullptr; }
    ImageRef genericApplicationIcon() const override { return nullptr; }
    Handle subscribe(std::function<void(const WorkspaceEvent&)>) override { return {}; }

    bool open(std::string_view) override { return false; }
    bool openWith(const std::vector<std::string>&, std::string_view) override { return false; }
    bool openNewInstance(std::string_view) override { return false; }
    bool reveal(std::string_view) override { return false; }
    bool activate(ProcessId) override { return false; }
    bool hide(ProcessId) override { return false; }
    bool unhide(ProcessId) override { return false; }
    bool terminate(ProcessId) override { return false; }
    bool forceTerminate(ProcessId) override { return false; }
    bool sendSignal(ProcessId pid, int signal) override {
        signals.emplace_back(pid, signal);
        return true;
    }
    std::vector<std::pair<ProcessId, int>> signals;
};

PropertyValue app(const std::string& identifier) {
    return Dictionary{{"GUID", 17},
                      {"tile-data", Dictionary{{"bundle-identifier", identifier}, {"dock", true}}}};
}

const PropertyValue spacer = Dictionary{{"tile-type", "spacer-tile"}, {"tile-data", Dictionary{}}};

Array written(Array before, const std::vector<std::string>& identifiers) {
    MemoryPreferences dock;
    TwoDocks system;
    dock.setAppValue("persistent-apps", std::move(before));
    writePinnedApps(dock, system, system, identifiers);
    return *dock.values["persistent-apps"].as<Array>();
}

TEST(PinnedApps, EntriesThatAreNoAppAreSkipped) {
    MemoryPreferences dock;
    EXPECT_TRUE(pinnedAppIdentifiers(dock).empty());
    dock.setAppValue("persistent-apps", "no list");
    EXPECT_TRUE(pinnedAppIdentifiers(dock).empty());
    dock.setAppValue("persistent-apps",
                     Array{app("b"), spacer, "text", app(""), 3, app("a"),
                           Dictionary{{"tile-data", 1}},
                           Dictionary{{"tile-data", Dictionary{{"bundle-identifier", 4}}}}});
    EXPECT_THAT(pinnedAppIdentifiers(dock), ElementsAre("b", "a"));
}

TEST(PinnedApps, WhatStaysKeepsAllItsKeysAndSpacersTheirNeighbours) {
    EXPECT_EQ(written({app("a"), spacer, app("b"), app("c")}, {"c", "a"}),
              (Array{app("c"), app("a"), spacer}));
    EXPECT_EQ(written({spacer, app("a")}, {"a"}), (Array{spacer, app("a")}));
    EXPECT_EQ(written({app("a"), app("b"), spacer}, {"a"}), (Array{app("a"), spacer}));
}

TEST(PinnedApps, KeptEntriesAreByteForByteAsTheDockWroteThem) {
    const PropertyValue full = Dictionary{
        {"GUID", std::int64_t{3'000'000'001}},
        {"tile-type", "file-tile"},
        {"a key of later systems", Array{true, 0.5, Data{std::string("\0\xff", 2)}, "1"}},
        {"tile-data",
         Dictionary{{"bundle-identifier", "full"},
                    {"book", Data{std::string("book\0\0", 6)}},
                    {"file-mod-date", std::int64_t{3'700'000'000}},
                    {"is-beta", false},
                    {"file-data", Dictionary{{"_CFURLString", "file:///Old%20Place/Full.app/"},
                                             {"_CFURLStringType", 15}}}}}};
    EXPECT_EQ(written({app("a"), full}, {"full", "new", "a"}).front(), full);
    EXPECT_EQ(written({full}, {}), Array{}) << "a removed entry is removed completely";
}

TEST(PinnedApps, WhatIsNoAppStaysInItsPlaceWhateverItIs) {
    const Array odd{
        spacer,
        Dictionary{{"tile-type", "url-tile"},
                   {"tile-data", Dictionary{{"url", Dictionary{{"_CFURLString", "https://a.b"}}}}}},
        Dictionary{{"tile-type", "file-tile"}},
        Dictionary{{"tile-data", Dictionary{{"file-label", "no identifier"}}}},
        Data{"raw"},
        "text",
        3,
    };
    for (const auto& entry : odd) {
        EXPECT_EQ(written({entry, app("a"), entry, app("b")}, {"b", "a"}),
                  (Array{entry, app("b"), app("a"), entry}));
        EXPECT_EQ(written({app("a"), entry, app("b"), entry}, {"a"}),
                  (Array{app("a"), entry, entry}))
            << "behind a removed app, it moves to the previous one";
    }
}

TEST(PinnedApps, AnAppThatTheListNamesTwiceKeepsItsFirstEntry) {
    const PropertyValue second =
        Dictionary{{"GUID", 99}, {"tile-data", Dictionary{{"bundle-identifier", "a"}}}};
    EXPECT_EQ(written({app("a"), app("b"), second}, {"a", "b"}), (Array{app("a"), app("b")}));
}

TEST(PinnedApps, AListThatIsNoneIsBegunAnew) {
    MemoryPreferences dock;
    TwoDocks system;
    dock.setAppValue("persistent-apps", "no list");
    dock.setAppValue("tilesize", 64);
    writePinnedApps(dock, system, system, {"gone.app"});
    EXPECT_THAT(pinnedAppIdentifiers(dock), ElementsAre("gone.app"));
    EXPECT_EQ(dock.values["tilesize"], PropertyValue(64));
}

TEST(PinnedApps, ANewEntryNamesTheAppAsTheDockDoes) {
    EXPECT_EQ(written({}, {"q", "q"}),
              (Array{Dictionary{
                  {"tile-type", "file-tile"},
                  {"tile-data",
                   Dictionary{{"bundle-identifier", "q"},
                              {"file-label", "My q"},
                              {"file-data", Dictionary{{"_CFURLString", "file:///Apps/My%20q.app/"},
                                                       {"_CFURLStringType", 15}}}}}}}));
}

TEST(PinnedApps, FinderGetsNoEntryAndAnUnknownAppIsNotLost) {
    EXPECT_EQ(written({}, {"com.apple.finder", "gone.app"}),
              (Array{Dictionary{{"tile-type", "file-tile"},
                                {"tile-data", Dictionary{{"bundle-identifier", "gone.app"}}}}}));
}

TEST(PinnedApps, OnlyTheFirstDockIsRestarted) {
    MemoryPreferences dock;
    TwoDocks system;
    writePinnedApps(dock, system, system, {});
    EXPECT_THAT(system.signals, ElementsAre(std::pair(7, 15)));
}

} // namespace
} // namespace larkspan
