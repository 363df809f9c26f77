#include "adapters/freedesktop/icons/IconTheme.h"

#include "adapters/freedesktop/entries/KeyFile.h"
#include "adapters/freedesktop/icons/GenericApplicationIcon.h"
#include "adapters/freedesktop/icons/IconThemeFolder.h"
#include "adapters/qt/PictureFile.h"

#include <algorithm>
#include <array>
#include <unistd.h>
#include <utility>

namespace larkspan::freedesktop {

namespace {

// What desktops themselves fall back to.
constexpr const char* usualTheme = "Adwaita";
constexpr const char* lastTheme = "hicolor";
constexpr std::array extensions = {".png", ".svg", ".svgz", ".xpm"};

/// The theme selected in the settings of GTK or KDE, whichever has one.
std::string themeFromSettings(const XdgFolders& folders) {
    struct Place {
        const char* file;
        std::string_view group;
        std::string_view key;
    };
    constexpr std::array places = {
        Place{"/gtk-3.0/settings.ini", "Settings", "gtk-icon-theme-name"},
        Place{"/gtk-4.0/settings.ini", "Settings", "gtk-icon-theme-name"},
        Place{"/kdeglobals", "Icons", "Theme"},
    };
    for (const auto& folder : folders.allConfigDirs()) {
        for (const auto& place : places) {
            std::string theme;
            readKeyFile(readText(folder + place.file),
                        [&](std::string_view group, std::string_view key, std::string_view value) {
                            if (group == place.group && key == place.key) theme = value;
                            return theme.empty();
                        });
            if (!theme.empty()) return theme;
        }
    }
    return usualTheme;
}

std::string withoutExtension(const std::string& name) {
    for (const std::string_view extension : extensions) {
        if (name.ends_with(extension)) return name.substr(0, name.size() - extension.size());
    }
    return name;
}

bool isReadable(const std::string& path) {
    return access(path.c_str(), R_OK) == 0;
}

} // namespace

IconTheme::IconTheme(const Environment& environment, std::string themeName)
    : folders_(environment)
    , themeName_(std::move(themeName)) {}

IconTheme::~IconTheme() = default;

void IconTheme::loadThemes() const {
    baseFolders_.push_back(folders_.home + "/.icons");
    for (const auto& dataDir : folders_.allDataDirs()) {
        baseFolders_.push_back(dataDir + "/icons");
    }
    addTheme(themeName_.empty() ? themeFromSettings(folders_) : themeName_);
    addTheme(lastTheme);
}

/// Adds the theme and, after it, those it inherits from.
void IconTheme::addTheme(const std::string& name) const {
    if (std::ranges::find(themeNames_, name) != themeNames_.end()) return;
    themeNames_.push_back(name);
    auto theme = std::make_unique<IconThemeFolder>(name, baseFolders_);
    const auto inherited = theme->inherited();
    if (theme->exists()) themes_.push_back(std::move(theme));
    for (const auto& parent : inherited) {
        // The theme that all inherit from is added after all others.
        if (parent != lastTheme) addTheme(parent);
    }
}

ImageRef IconTheme::icon(std::string_view nameOrPath) const {
    if (nameOrPath.empty()) return nullptr;
    const auto known = icons_.find(nameOrPath);
    if (known != icons_.end()) return known->second;
    const std::string name(nameOrPath);
    ImageRef image;
    if (!name.starts_with('/'))
        image = lookUp(withoutExtension(name));
    else if (isReadable(name))
        image = std::make_shared<qt::PictureFile>(name);
    icons_.emplace(name, image);
    return image;
}

ImageRef IconTheme::lookUp(const std::string& name) const {
    if (baseFolders_.empty()) loadThemes();
    for (const auto& theme : themes_) {
        auto files = theme->files(name);
        if (files.empty()) continue;
        std::string identity = files.front().path;
        return std::make_shared<qt::PictureFile>(std::move(identity), std::move(files));
    }
    // Icons outside of any theme, as old applications install them.
    for (const auto& dataDir : folders_.allDataDirs()) {
        for (const auto* place : {"/pixmaps/", "/icons/"}) {
            for (const auto* extension : extensions) {
                const std::string path = dataDir + place + name + extension;
                if (isReadable(path)) return std::make_shared<qt::PictureFile>(path);
            }
        }
    }
    return nullptr;
}

ImageRef IconTheme::genericApplication() const {
    if (auto image = icon("application-x-executable")) return image;
    return std::make_shared<GenericApplicationIcon>();
}

} // namespace larkspan::freedesktop
