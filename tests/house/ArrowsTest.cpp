#include "SourceTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <regex>
#include <set>

namespace larkspan::house {
namespace {

/// What each folder under src/ may include, beside itself and the standard library. A quoted
/// include names the folder first; anything in angle brackets beyond the standard library must
/// start with one of `outside`.
struct Arrows {
    std::set<std::string> inside;
    std::vector<std::string> outside;
};

const std::vector<std::string> plain = {"fmt/", "nlohmann/"};
const std::vector<std::string> posix = {"sys/",     "unistd.h", "fcntl.h", "poll.h",
                                        "signal.h", "pwd.h",    "spawn.h", "fnmatch.h",
                                        "dirent.h", "netinet/", "dlfcn.h"};

/// The headers of a Mac.
const std::vector<std::string> frameworks = {"AppKit/",
                                             "ApplicationServices/",
                                             "ColorSync/",
                                             "CoreFoundation/",
                                             "CoreGraphics/",
                                             "CoreServices/",
                                             "CoreVideo/",
                                             "Foundation/",
                                             "QuartzCore/",
                                             "ServiceManagement/",
                                             "dispatch/",
                                             "objc/",
                                             "os/"};

std::vector<std::string> operator+(std::vector<std::string> left,
                                   const std::vector<std::string>& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

const std::map<std::string, Arrows>& arrows() {
    static const std::set<std::string> system = {
        "platform", "settings", "diagnostics", "spaces", "dock", "model", "bar", "tools", "app"};
    static const auto with = [](std::set<std::string> folders,
                                const std::set<std::string>& others) {
        folders.insert(others.begin(), others.end());
        return folders;
    };
    static const auto qt = plain + std::vector<std::string>{"Q"};
    static const std::map<std::string, Arrows> table = {
        {"platform", {{}, plain}},
        {"settings", {{"platform"}, plain}},
        {"diagnostics", {{"platform"}, plain}},
        {"spaces", {{"platform", "diagnostics"}, plain}},
        {"dock", {{"platform", "diagnostics"}, plain}},
        {"model", {{"platform", "diagnostics", "spaces", "dock"}, plain}},
        {"tools", {{"platform", "diagnostics", "settings"}, plain}},
        {"bar", {{"platform", "settings", "diagnostics", "spaces", "dock", "model"}, plain}},
        {"app", {system, plain}},
        {"control", {system, plain}},
        {"adapters/sim", {{"platform"}, plain}},
        {"scenario", {with(system, {"control", "adapters/sim"}), plain}},
        {"adapters/qt", {{"platform"}, qt + posix}},
        {"adapters/freedesktop", {{"platform", "adapters/qt"}, qt + posix}},
        {"adapters/x11",
         {{"platform", "adapters/qt", "adapters/freedesktop"},
          qt + posix + std::vector<std::string>{"xcb/", "X11/"}}},
        {"adapters/mac", {{"platform", "adapters/qt"}, qt + posix + frameworks}},
        {"ui", {system, qt}},
        {"ui/demo", {with(system, {"control", "adapters/sim", "scenario", "ui"}), qt}},
    };
    return table;
}

/// "src/adapters/x11/connection/Atoms.h" is in "adapters/x11"; a deeper folder without arrows of
/// its own belongs to the one above it.
std::string folderOf(std::string path) {
    while (!path.empty()) {
        const auto slash = path.rfind('/');
        path = slash == std::string::npos ? std::string() : path.substr(0, slash);
        if (arrows().contains(path)) return path;
    }
    return path;
}

bool isStandard(const std::string& header) {
    return header.find_first_of("./") == std::string::npos && header[0] != 'Q';
}

bool startsWithOneOf(const std::string& text, const std::vector<std::string>& starts) {
    return std::ranges::any_of(starts, [&](const auto& start) { return text.starts_with(start); });
}

std::string complaintAbout(const std::string& folder, const std::string& header, bool isQuoted) {
    const auto& allowed = arrows().at(folder);
    if (!isQuoted) {
        if (isStandard(header) || startsWithOneOf(header, allowed.outside)) return {};
        return folder + " may not include <" + header + ">";
    }
    // A name without a folder is the file's neighbour, or what Qt's moc makes for it.
    if (header.find('/') == std::string::npos) return {};
    const auto target = folderOf(header);
    if (target.empty()) return "\"" + header + "\" is in no folder of the system";
    if (target == folder || allowed.inside.contains(target)) return {};
    return folder + " may not include \"" + header + "\": no arrow goes from " + folder + " to " +
           target;
}

TEST(Arrows, EveryIncludeIsAllowed) {
    const std::regex include(R"(^\s*#\s*(?:include|import)\s+(["<])([^">]+)[">])");
    std::vector<std::string> complaints;
    int includes = 0;
    for (const auto& path : filesUnder({"src"}, {".h", ".cpp", ".mm"})) {
        const auto folder = folderOf(path.substr(std::string("src/").size()));
        if (folder.empty()) continue; // main.cpp, the one place that knows everything
        for (const auto& line : linesOf(path)) {
            std::smatch match;
            if (!std::regex_search(line.text, match, include)) continue;
            ++includes;
            const auto complaint = complaintAbout(folder, match[2], match[1] == "\"");
            if (!complaint.empty()) complaints.push_back(at(line, complaint));
        }
    }
    EXPECT_GT(includes, 100)
        << "hardly any include was found: is the tree at LARKSPAN_SOURCE_ROOT?";
    EXPECT_TRUE(complaints.empty()) << listed(complaints);
}

TEST(Arrows, EveryFolderUnderSrcHasArrows) {
    for (const auto& path : filesUnder({"src"}, {".h", ".cpp", ".mm"})) {
        if (path == "src/main.cpp") continue;
        EXPECT_FALSE(folderOf(path.substr(4)).empty())
            << path << ": its folder has no arrows in this test";
    }
}

// The rule itself, so that a slip in it does not let everything pass.
TEST(Arrows, ForbiddenIncludesAreFound) {
    struct Case {
        const char* folder;
        const char* header;
        bool isQuoted;
        bool isAllowed;
    };
    const Case cases[] = {
        {"model", "vector", false, true},
        {"model", "QString", false, false},
        {"model", "xcb/xcb.h", false, false},
        {"model", "unistd.h", false, false},
        {"model", "fmt/format.h", false, true},
        {"model", "platform/Scheduler.h", true, true},
        {"model", "adapters/x11/X11Desktop.h", true, false},
        {"model", "app/AppController.h", true, false},
        {"model", "tools/trash/TrashWatch.h", true, false},
        {"tools", "model/DockStore.h", true, false},
        {"app", "control/Control.h", true, false},
        {"scenario", "ui/parts/Views.h", true, false},
        {"adapters/x11", "adapters/qt/QtScheduler.h", true, true},
        {"adapters/x11", "adapters/freedesktop/Environment.h", true, true},
        {"adapters/x11", "model/DockStore.h", true, false},
        {"adapters/freedesktop", "xcb/xcb.h", false, false},
        {"adapters/freedesktop", "adapters/x11/X11Desktop.h", true, false},
        {"adapters/qt", "adapters/x11/X11Desktop.h", true, false},
        {"adapters/sim", "QImage", false, false},
        {"adapters/sim", "app/AppController.h", true, false},
        {"adapters/mac", "AppKit/AppKit.h", false, true},
        {"adapters/mac", "model/DockStore.h", true, false},
        {"spaces", "CoreGraphics/CoreGraphics.h", false, false},
        {"ui", "adapters/x11/X11Desktop.h", true, false},
    };
    for (const auto& each : cases) {
        const auto complaint = complaintAbout(each.folder, each.header, each.isQuoted);
        EXPECT_EQ(complaint.empty(), each.isAllowed) << each.folder << " and " << each.header;
    }
}

} // namespace
} // namespace larkspan::house
