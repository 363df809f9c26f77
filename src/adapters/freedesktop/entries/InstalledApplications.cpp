#include "adapters/freedesktop/entries/InstalledApplications.h"

#include <fmt/format.h>

#include <array>
#include <utility>

#include <unistd.h>

namespace larkspan::freedesktop {

namespace {

// Empty if the process has ended or belongs to another user.
std::string executableOf(ProcessId process) {
    std::array<char, 4096> path{};
    const auto link = fmt::format("/proc/{}/exe", process);
    const auto length = readlink(link.c_str(), path.data(), path.size());
    return length > 0 ? std::string(path.data(), static_cast<std::size_t>(length)) : std::string();
}

} // namespace

DesktopEntryRef InstalledApplications::find(std::string_view bundleIdentifier) const {
    return bundleIdentifier == finderIdentifier ? fileManager() : entries_.find(bundleIdentifier);
}

std::string InstalledApplications::identifierOf(const DesktopEntry& entry) const {
    const auto manager = fileManager();
    return manager && manager->id == entry.id ? finderIdentifier : entry.id;
}

DesktopEntryRef InstalledApplications::fileManager() const {
    if (!std::exchange(isFileManagerKnown_, true)) fileManager_ = defaults_.fileManager();
    return fileManager_;
}

std::optional<EntryMatch> InstalledApplications::match(const std::string& instance,
                                                       const std::string& className,
                                                       std::optional<ProcessId> process) const {
    const auto executable = process ? executableOf(*process) : std::string();
    const auto entry = entries_.match(instance, className, executable);
    if (!entry) return std::nullopt;
    const auto ofProgram = executable.empty() ? nullptr : entries_.match({}, {}, executable);
    return EntryMatch{.identifier = identifierOf(*entry),
                      .isOwnProcess = ofProgram && ofProgram->id == entry->id};
}

} // namespace larkspan::freedesktop
