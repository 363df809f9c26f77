#include "soak/day/Act.h"

#include <algorithm>
#include <fmt/format.h>
#include <stdexcept>

namespace larkspan::soak {

const std::vector<Act>& acts() {
    static const std::vector<Act> all = [] {
        std::vector<Act> list;
        for (const auto& part :
             {appActs(), windowActs(), displayActs(), barActs(), systemActs(), faultActs()})
            list.insert(list.end(), part.begin(), part.end());
        return list;
    }();
    return all;
}

const Act& actNamed(std::string_view name) {
    const auto found = std::ranges::find(acts(), name, &Act::name);
    if (found == acts().end()) throw std::invalid_argument(fmt::format("unknown act \"{}\"", name));
    return *found;
}

} // namespace larkspan::soak
