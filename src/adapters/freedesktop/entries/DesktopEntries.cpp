#include "adapters/freedesktop/entries/DesktopEntries.h"

#include "adapters/freedesktop/entries/ExecLine.h"
#include "adapters/freedesktop/entries/KeyFile.h"

#include <algorithm>
#include <cctype>
#include <dirent.h>
#include <filesystem>
#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr std::string_view entryFileSuffix = ".desktop";
// Installing writes many files; the entries are read again when it has finished.
constexpr double settlingSeconds = 0.3;
constexpr int deepestFolder = 4;

std::string inSmallLetters(std::string_view text) {
    std::string result(text);
    for (char& letter : result) {
        letter = static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    }
    return result;
}

std::string_view afterLastDot(std::string_view id) {
    const auto dot = id.rfind('.');
    return dot == std::string_view::npos ? std::string_view() : id.substr(dot + 1);
}

/// If a window could belong to several entries, one that is shown in menus is preferred.
void prefer(DesktopEntryRef& best, const DesktopEntryRef& candidate) {
    if (!best || (!best->isDisplayed && candidate->isDisplayed)) best = candidate;
}

} // namespace

DesktopEntries::DesktopEntries(const Environment& environment, Scheduler& scheduler)
    : environment_(environment)
    , folders_(environment)
    , scheduler_(scheduler)
    , watch_([this] { foldersChanged(); }) {}

const DesktopEntries::ById& DesktopEntries::entries() const {
    if (std::exchange(isRead_, true)) return entries_;
    entries_.clear();
    for (const auto& dataDir : folders_.allDataDirs()) {
        readFolder(dataDir + "/applications", {}, 0);
    }
    // A deleted entry has served its purpose: it hid those of later folders.
    std::erase_if(entries_, [](const auto& entry) { return entry.second->isHidden; });
    return entries_;
}

void DesktopEntries::readFolder(const std::string& folder, const std::string& prefix,
                                int depth) const {
    watch_.add(folder);
    DIR* listing = opendir(folder.c_str());
    if (listing == nullptr) return;
    while (const dirent* file = readdir(listing)) {
        const std::string_view name = file->d_name;
        if (name.starts_with('.')) continue;
        const std::string path = folder + "/" + file->d_name;
        if (name.ends_with(entryFileSuffix)) {
            addFile(path,
                    prefix + std::string(name.substr(0, name.size() - entryFileSuffix.size())));
        } else if (depth < deepestFolder && name.find('.') == std::string_view::npos &&
                   std::filesystem::is_directory(path)) {
            readFolder(path, prefix + file->d_name + "-", depth + 1);
        }
    }
    closedir(listing);
}

void DesktopEntries::addFile(const std::string& path, std::string id) const {
    // The folders are sorted by importance: the first entry of an id counts.
    if (entries_.contains(id)) return;
    auto entry = parseDesktopEntry(readText(path), folders_);
    if (!entry) return;
    if (!entry->tryExec.empty() && environment_.findProgram(entry->tryExec).empty())
        entry->isHidden = true;
    entry->id = id;
    entry->path = path;
    if (entry->name.empty()) entry->name = id;
    entries_.emplace(std::move(id), std::make_shared<const DesktopEntry>(std::move(*entry)));
}

DesktopEntryRef DesktopEntries::find(std::string_view id) const {
    const auto found = entries().find(id);
    return found == entries().end() ? nullptr : found->second;
}

DesktopEntryRef DesktopEntries::atPath(std::string_view path) const {
    for (const auto& [id, entry] : entries()) {
        if (entry->path == path) return entry;
    }
    return nullptr;
}

std::vector<DesktopEntryRef> DesktopEntries::all() const {
    std::vector<DesktopEntryRef> result;
    for (const auto& [id, entry] : entries()) {
        result.push_back(entry);
    }
    return result;
}

DesktopEntryRef DesktopEntries::match(std::string_view instance, std::string_view className,
                                      std::string_view executable) const {
    // The instance first: web applications of one browser have the same class.
    for (const auto name : {instance, className}) {
        if (auto entry = matchStartupClass(name)) return entry;
    }
    for (const auto name : {instance, className}) {
        if (auto entry = matchId(name)) return entry;
    }
    return matchExecutable(executable);
}

DesktopEntryRef DesktopEntries::matchStartupClass(std::string_view name) const {
    DesktopEntryRef best;
    if (name.empty()) return best;
    for (const auto& [id, entry] : entries()) {
        if (entry->startupWMClass == name) prefer(best, entry);
    }
    return best;
}

DesktopEntryRef DesktopEntries::matchId(std::string_view name) const {
    if (name.empty()) return nullptr;
    std::string small = inSmallLetters(name);
    std::ranges::replace(small, ' ', '-');
    if (auto entry = find(name)) return entry;
    if (auto entry = find(small)) return entry;
    DesktopEntryRef best;
    for (const auto& [id, entry] : entries()) {
        const auto last = afterLastDot(id);
        if (!last.empty() && (last == name || last == small)) prefer(best, entry);
    }
    return best;
}

DesktopEntryRef DesktopEntries::matchExecutable(std::string_view executable) const {
    if (executable.empty()) return nullptr;
    const std::filesystem::path wanted(executable);
    const std::string name = wanted.filename().string();
    DesktopEntryRef best;
    for (const auto& [id, entry] : entries()) {
        // Called for every window: this rules out most lines without parsing them.
        if (entry->exec.find(name) == std::string::npos) continue;
        // A terminal program runs in a window of the terminal's process.
        if (entry->isTerminal || !entry->isDisplayed) continue;
        const auto program = soleProgram(entry->exec);
        if (!program || std::filesystem::path(*program).filename() != name) continue;
        std::error_code error;
        if (std::filesystem::canonical(environment_.findProgram(*program), error) != wanted)
            continue;
        // Two applications have the same executable: the window could belong to either.
        if (best) return nullptr;
        best = entry;
    }
    return best;
}

Handle DesktopEntries::subscribe(std::function<void()> callback) {
    return changed_.subscribe(std::move(callback));
}

void DesktopEntries::foldersChanged() {
    settling_ = scheduler_.after(settlingSeconds, [this] {
        isRead_ = false;
        changed_.emit();
    });
}

} // namespace larkspan::freedesktop
