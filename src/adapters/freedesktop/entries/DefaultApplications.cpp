#include "adapters/freedesktop/entries/DefaultApplications.h"

#include "adapters/freedesktop/entries/ExecLine.h"
#include "adapters/freedesktop/entries/KeyFile.h"

#include <QMimeDatabase>

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace larkspan::freedesktop {

namespace {

constexpr std::string_view folderType = "inode/directory";
constexpr std::string_view entrySuffix = ".desktop";

std::string withoutSuffix(const std::string& file) {
    return file.ends_with(entrySuffix) ? file.substr(0, file.size() - entrySuffix.size()) : file;
}

/// The lists of default applications, the user's choices first.
std::vector<std::string> listPaths(const XdgFolders& folders) {
    std::vector<std::string> names;
    for (std::string desktop : folders.currentDesktops) {
        for (char& letter : desktop) {
            letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
        }
        names.push_back(desktop + "-mimeapps.list");
    }
    names.emplace_back("mimeapps.list");
    std::vector<std::string> places = folders.allConfigDirs();
    for (const auto& dataDir : folders.allDataDirs()) {
        places.push_back(dataDir + "/applications");
    }
    std::vector<std::string> paths;
    for (const auto& place : places) {
        for (const auto& name : names) {
            paths.push_back(place + "/" + name);
        }
    }
    return paths;
}

/// The name of the program that a line starts, with links resolved, such as what
/// `x-terminal-emulator` links to.
std::string programBehind(const std::string& path) {
    std::error_code error;
    std::filesystem::path program = std::filesystem::canonical(path, error).filename();
    // A wrapper that gives a terminal the usual options is named after the terminal.
    if (program.extension() == ".wrapper") program = program.stem();
    return program.string();
}

} // namespace

DefaultApplications::DefaultApplications(const Environment& environment,
                                         const DesktopEntries& entries)
    : environment_(environment)
    , folders_(environment)
    , entries_(entries) {}

DesktopEntryRef DefaultApplications::forType(std::string_view mimeType) const {
    if (auto entry = fromLists(mimeType)) return entry;
    return fromEntries(mimeType, {});
}

DesktopEntryRef DefaultApplications::forFile(const std::string& path) const {
    if (std::filesystem::is_directory(path)) return fileManager();
    const QMimeType type = QMimeDatabase().mimeTypeForFile(QString::fromStdString(path));
    if (auto entry = forType(type.name().toStdString())) return entry;
    // A C++ source is also a text, and opens with the application for texts.
    for (const auto& ancestor : type.allAncestors()) {
        if (auto entry = forType(ancestor.toStdString())) return entry;
    }
    return nullptr;
}

DesktopEntryRef DefaultApplications::fromLists(std::string_view mimeType) const {
    DesktopEntryRef chosen;
    for (const auto& path : listPaths(folders_)) {
        readKeyFile(readText(path),
                    [&](std::string_view group, std::string_view key, std::string_view value) {
                        if (group != "Default Applications" || key != mimeType) return true;
                        for (const auto& file : splitList(value, ';')) {
                            if (!chosen) chosen = entries_.find(withoutSuffix(file));
                        }
                        return !chosen;
                    });
        if (chosen) break;
    }
    return chosen;
}

DesktopEntryRef DefaultApplications::fromEntries(std::string_view mimeType,
                                                 std::string_view category) const {
    for (const auto& entry : entries_.all()) {
        const bool fits = (mimeType.empty() || entry->handles(mimeType)) &&
                          (category.empty() || entry->hasCategory(category));
        if (entry->isDisplayed && fits) return entry;
    }
    return nullptr;
}

DesktopEntryRef DefaultApplications::fileManager() const {
    if (auto entry = fromLists(folderType)) return entry;
    // Editors and players can open folders too.
    return fromEntries(folderType, "FileManager");
}

DesktopEntryRef DefaultApplications::terminal() const {
    if (auto entry = fromLists("x-scheme-handler/terminal")) return entry;
    const std::string chosen = programBehind(environment_.findProgram("x-terminal-emulator"));
    for (const auto& entry : entries_.all()) {
        if (!entry->isDisplayed || !entry->hasCategory("TerminalEmulator")) continue;
        const auto program = soleProgram(entry->exec);
        if (program && std::filesystem::path(*program).filename() == chosen) return entry;
    }
    return fromEntries({}, "TerminalEmulator");
}

std::vector<DesktopEntryRef> DefaultApplications::firstPinned() const {
    const auto either = [this](std::string_view type, std::string_view category) {
        auto entry = fromLists(type);
        return entry ? entry : fromEntries(type, category);
    };
    const auto finder = fileManager();
    std::vector<DesktopEntryRef> pinned;
    for (const auto& entry : {either("x-scheme-handler/https", "WebBrowser"),
                              either("x-scheme-handler/mailto", "Email"), terminal(),
                              either("text/plain", "TextEditor")}) {
        const bool isNew = std::ranges::find(pinned, entry) == pinned.end();
        if (entry && entry != finder && isNew) pinned.push_back(entry);
    }
    return pinned;
}

} // namespace larkspan::freedesktop
