#include "control/MenuReport.h"

#include <nlohmann/json.hpp>

namespace larkspan {
namespace {

using nlohmann::json;

json markJson(MenuItem::Mark mark) {
    switch (mark) {
    case MenuItem::Mark::check:
        return "check";
    case MenuItem::Mark::diamond:
        return "diamond";
    case MenuItem::Mark::none:
        break;
    }
    return nullptr;
}

json lineJson(const MenuItem& line) {
    if (line.kind == MenuItem::Kind::separator) return nullptr;
    json object{{"title", line.title},
                {"enabled", line.isEnabled && line.kind != MenuItem::Kind::heading},
                {"mark", markJson(line.mark)}};
    if (line.alternate) object["option"] = line.alternate->title;
    if (!line.submenu.empty()) object["lines"] = menuReport(line.submenu);
    return object;
}

} // namespace

json menuReport(const Menu& menu) {
    json lines = json::array();
    for (const auto& line : menu)
        lines.push_back(lineJson(line));
    return lines;
}

} // namespace larkspan
