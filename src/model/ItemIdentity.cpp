#include "model/ItemIdentity.h"

#include <fmt/format.h>

#include <unordered_set>

namespace larkspan {

std::vector<std::string> itemIds(const std::vector<RunningApplication>& applications) {
    std::vector<std::string> ids;
    ids.reserve(applications.size());
    std::unordered_set<std::string> taken;
    for (const auto& application : applications) {
        const auto byProcess = fmt::format("pid:{}", application.pid);
        auto id = application.bundleIdentifier.value_or(byProcess);
        if (!taken.insert(id).second) {
            id = byProcess;
            taken.insert(id);
        }
        ids.push_back(std::move(id));
    }
    return ids;
}

} // namespace larkspan
