#include "model/WindowChangeLine.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <iterator>
#include <vector>

namespace larkspan {

namespace {

template <typename Value>
const Value& valueOf(const std::map<ProcessId, Value>& map, ProcessId pid) {
    static const Value none;
    const auto found = map.find(pid);
    return found == map.end() ? none : found->second;
}

std::set<SpaceId> spacesOf(const std::set<Slot>& slots) {
    std::set<SpaceId> spaces;
    for (const auto& slot : slots)
        if (slot.space) spaces.insert(*slot.space);
    return spaces;
}

std::string listed(const std::set<DisplayId>& displays, const std::set<SpaceId>& spaces) {
    if (displays.empty() && spaces.empty()) return "none";
    std::string text;
    if (!displays.empty())
        text =
            fmt::format("display{} {}", displays.size() == 1 ? "" : "s", fmt::join(displays, ", "));
    if (!displays.empty() && !spaces.empty()) text += ' ';
    if (!spaces.empty()) text += fmt::format("Spaces {}", fmt::join(spaces, ", "));
    return text;
}

template <typename T>
std::set<T> difference(const std::set<T>& all, const std::set<T>& gone) {
    std::set<T> rest;
    std::ranges::set_difference(all, gone, std::inserter(rest, rest.end()));
    return rest;
}

std::set<ProcessId> processesIn(std::initializer_list<const DisplaysByProcess*> displays,
                                std::initializer_list<const SlotsByProcess*> slots) {
    std::set<ProcessId> pids;
    for (const auto* map : displays)
        for (const auto& [pid, value] : *map)
            pids.insert(pid);
    for (const auto* map : slots)
        for (const auto& [pid, value] : *map)
            pids.insert(pid);
    return pids;
}

} // namespace

std::string windowChangeLine(const DisplaysByProcess& displaysBefore,
                             const SlotsByProcess& slotsBefore,
                             const DisplaysByProcess& displaysNow, const SlotsByProcess& slotsNow) {
    std::vector<std::string> changes;
    for (const auto pid : processesIn({&displaysBefore, &displaysNow}, {&slotsBefore, &slotsNow})) {
        const auto& oldDisplays = valueOf(displaysBefore, pid);
        const auto& displays = valueOf(displaysNow, pid);
        const auto oldSpaces = spacesOf(valueOf(slotsBefore, pid));
        const auto spaces = spacesOf(valueOf(slotsNow, pid));
        if (displays == oldDisplays && spaces == oldSpaces) continue;
        changes.push_back(fmt::format(
            "pid {} windows now for [{}], none left for [{}]", pid, listed(displays, spaces),
            listed(difference(oldDisplays, displays), difference(oldSpaces, spaces))));
    }
    return fmt::format("{}", fmt::join(changes, "; "));
}

} // namespace larkspan
