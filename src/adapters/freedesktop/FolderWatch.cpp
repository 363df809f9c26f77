#include "adapters/freedesktop/FolderWatch.h"

#include "adapters/qt/watchReadable.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <sys/inotify.h>
#include <unistd.h>
#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_CLOSE_WRITE | IN_MOVED_FROM |
                                  IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
// The events of a parent that is watched only until the wanted folder appears in it.
constexpr std::uint32_t appearances =
    IN_CREATE | IN_MOVED_TO | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

} // namespace

FolderWatch::FolderWatch(std::function<void()> changed)
    : changed_(std::move(changed))
    , descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
    if (descriptor_ >= 0) readable_ = qt::watchReadable(descriptor_, [this] { readEvents(); });
}

FolderWatch::~FolderWatch() {
    readable_.reset();
    if (descriptor_ >= 0) close(descriptor_);
}

void FolderWatch::add(const std::string& folder) {
    if (descriptor_ < 0 || std::ranges::find(folders_, folder) != folders_.end()) return;
    folders_.push_back(folder);
    arm(folder);
}

/// Watches the folder, or its nearest parent that exists. Returns whether it is the folder itself.
bool FolderWatch::arm(const std::string& folder) {
    int watch = inotify_add_watch(descriptor_, folder.c_str(), changes);
    if (watch >= 0) {
        watches_[watch] = folder;
        return true;
    }
    std::filesystem::path parent = folder;
    while (watch < 0 && parent.has_relative_path()) {
        parent = parent.parent_path();
        // Added to an existing watch, since the parent may be a wanted folder too.
        watch = inotify_add_watch(descriptor_, parent.c_str(), appearances | IN_MASK_ADD);
    }
    if (watch >= 0) watches_.try_emplace(watch, parent.string());
    return false;
}

bool FolderWatch::isArmed(const std::string& folder) const {
    return std::ranges::any_of(watches_, [&](const auto& watch) { return watch.second == folder; });
}

void FolderWatch::readEvents() {
    alignas(inotify_event) std::array<char, 8192> buffer{};
    bool isWanted = false;
    while (true) {
        const auto length = read(descriptor_, buffer.data(), buffer.size());
        if (length <= 0) break;
        for (std::ptrdiff_t offset = 0; offset < length;) {
            const auto* event = reinterpret_cast<const inotify_event*>(buffer.data() + offset);
            isWanted = take(event->wd, event->mask) || isWanted;
            offset += static_cast<std::ptrdiff_t>(sizeof(inotify_event) + event->len);
        }
    }
    // Any event may mean that a missing folder exists now.
    bool isComplete = true;
    for (const auto& folder : folders_) {
        if (isArmed(folder)) continue;
        if (arm(folder))
            isWanted = true;
        else
            isComplete = false;
    }
    if (isComplete) forgetParents();
    if (isWanted) changed_();
}

/// Once every wanted folder exists, changes beside them need not wake us.
void FolderWatch::forgetParents() {
    std::erase_if(watches_, [this](const auto& watch) {
        const bool isWanted = std::ranges::find(folders_, watch.second) != folders_.end();
        if (!isWanted) inotify_rm_watch(descriptor_, watch.first);
        return !isWanted;
    });
}

/// Returns whether the event is about a wanted folder.
bool FolderWatch::take(int watch, std::uint32_t mask) {
    if ((mask & IN_Q_OVERFLOW) != 0) return true;
    const auto found = watches_.find(watch);
    if (found == watches_.end()) return false;
    const bool isWanted = std::ranges::find(folders_, found->second) != folders_.end();
    if ((mask & IN_MOVE_SELF) != 0) inotify_rm_watch(descriptor_, watch);
    // The folder was deleted or moved, and the kernel removes its watch.
    if ((mask & (IN_IGNORED | IN_DELETE_SELF | IN_MOVE_SELF)) != 0) watches_.erase(found);
    return isWanted;
}

} // namespace larkspan::freedesktop
