#include "platform/Menu.h"

namespace larkspan {

const MenuItem* findLine(const Menu& menu, std::string_view title) {
    for (const auto& line : menu) {
        if (line.title == title) return &line;
        if (line.alternate && line.alternate->title == title) return line.alternate.get();
        if (const auto* found = findLine(line.submenu, title)) return found;
    }
    return nullptr;
}

} // namespace larkspan
