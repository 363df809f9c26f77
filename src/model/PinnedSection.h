#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// The ids of the pinned section in order: Finder first, always and once, then the Dock's own
/// order.
std::vector<std::string> pinnedSection(const std::vector<std::string>& pinnedIDs);

/// Whether the item with that id is in the pinned section.
bool isPinned(std::string_view id, const std::vector<std::string>& pinnedIDs);

} // namespace larkspan
