#include "dock/PinnedApps.h"

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

/// Two Docks run, and the apps "a" to "z" are installed.
class TwoDocks : public Workspace, public ApplicationControl {
  public:
    std::vector<RunningApplication> runningApplications() const override {
        return {{.pid = 5, .bundleIdentifier = "com.apple.finder"},
                {.pid = 7, .bundleIdentifier = "com.apple.dock"},
                {.pid = 9, .bundleIdentifier = "com.apple.dock"}};
    }
    std::optional<RunningApplication> frontmostApplication() const override { return {}; }
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
