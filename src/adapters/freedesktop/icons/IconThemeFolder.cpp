#include "adapters/freedesktop/icons/IconThemeFolder.h"

#include "adapters/freedesktop/Environment.h"
#include "adapters/freedesktop/entries/KeyFile.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <map>
#include <unistd.h>
#include <utility>

namespace larkspan::freedesktop {

namespace {

int number(std::string_view text, int otherwise) {
    int result = otherwise;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

/// What the index says about one of the theme's folders.
struct Description {
    int size = 0;
    int scale = 1;
    bool isScalable = false;
    std::string context;

    void take(std::string_view key, std::string_view value) {
        if (key == "Size") size = number(value, 0);
        if (key == "Scale") scale = number(value, 1);
        if (key == "Type") isScalable = value == "Scalable";
        if (key == "Context") context = value;
    }
    int pixels() const { return isScalable ? 0 : size * scale; }
    /// Excludes the kinds for buttons and messages, which have thousands of icons.
    bool mayHoldApplications() const {
        constexpr std::array others = {"Actions", "Animations",    "Emblems", "Emotes",
                                       "Stock",   "International", "UI"};
        return std::ranges::find(others, context) == others.end();
    }
};

} // namespace

IconThemeFolder::IconThemeFolder(const std::string& name,
                                 const std::vector<std::string>& baseFolders) {
    std::string index;
    for (const auto& base : baseFolders) {
        const std::string place = base + "/" + name;
        if (access(place.c_str(), X_OK) != 0) continue;
        places_.push_back(place);
        // The first index describes the theme in all of its base folders.
        if (index.empty()) index = readText(place + "/index.theme");
    }
    readIndex(index);
}

void IconThemeFolder::readIndex(const std::string& text) {
    std::vector<std::string> names;
    std::map<std::string, Description, std::less<>> descriptions;
    readKeyFile(text, [&](std::string_view group, std::string_view key, std::string_view value) {
        if (group != "Icon Theme") {
            descriptions[std::string(group)].take(key, value);
            return true;
        }
        if (key == "Inherits") inherited_ = splitList(value, ',');
        if (key == "Directories" || key == "ScaledDirectories") {
            for (auto& name : splitList(value, ','))
                names.push_back(std::move(name));
        }
        return true;
    });
    for (const auto& name : names) {
        const Description& about = descriptions[name];
        if (!about.mayHoldApplications()) continue;
        auto& kind = about.context == "Applications" ? applications_ : others_;
        for (const auto& place : places_) {
            kind.folders.push_back({.path = place + "/" + name, .pixels = about.pixels()});
        }
    }
}

IconThemeFolder::Files IconThemeFolder::files(const std::string& icon) const {
    Files found = filesIn(applications_, icon);
    return found.empty() ? filesIn(others_, icon) : found;
}

IconThemeFolder::Files IconThemeFolder::filesIn(Folders& folders, const std::string& icon) {
    // Most of the folders that an index names do not exist.
    if (!std::exchange(folders.areChecked, true))
        std::erase_if(folders.folders,
                      [](const Folder& folder) { return access(folder.path.c_str(), X_OK) != 0; });
    Files found;
    for (const auto& folder : folders.folders) {
        for (const char* extension : {".svg", ".png", ".xpm"}) {
            std::string path = folder.path + "/" + icon + extension;
            if (access(path.c_str(), R_OK) != 0) continue;
            const bool isDrawing = extension == std::string_view(".svg");
            found.push_back(
                {.path = std::move(path), .pixels = folder.pixels, .isScalable = isDrawing});
            break;
        }
    }
    return found;
}

} // namespace larkspan::freedesktop
