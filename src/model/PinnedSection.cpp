#include "model/PinnedSection.h"

#include "platform/Identifiers.h"

#include <algorithm>
#include <unordered_set>

namespace larkspan {

std::vector<std::string> pinnedSection(const std::vector<std::string>& pinnedIDs) {
    std::vector<std::string> section{finderIdentifier};
    std::unordered_set<std::string_view> taken{finderIdentifier};
    for (const auto& id : pinnedIDs)
        // A damaged list may have an app twice; views need unique ids.
        if (taken.insert(id).second) section.push_back(id);
    return section;
}

bool isPinned(std::string_view id, const std::vector<std::string>& pinnedIDs) {
    return id == finderIdentifier || std::ranges::find(pinnedIDs, id) != pinnedIDs.end();
}

} // namespace larkspan
