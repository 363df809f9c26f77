#include "bar/BarTile.h"

#include "platform/Overload.h"

#include <fmt/format.h>

namespace larkspan {

std::optional<Slot> BarTile::slot() const {
    const auto* tile = app();
    return tile ? tile->slot : std::nullopt;
}

std::string BarTile::id() const {
    return std::visit(Overload{[](const AppTile& tile) { return tile.item.id; },
                               [](const TrashTile&) { return std::string("trash"); }},
                      content);
}

std::string BarTile::name() const {
    return std::visit(Overload{[](const AppTile& tile) { return tile.item.name; },
                               [](const TrashTile&) { return std::string("Trash"); }},
                      content);
}

std::string BarTile::key() const {
    switch (section) {
    case Section::pinned:
        return "pinned " + id();
    case Section::background:
        return "background " + id();
    case Section::trash:
        return "trash";
    case Section::windows:
        break;
    }
    const Slot place = slot().value_or(Slot{});
    return fmt::format("windows {} {} {}", place.display, place.space.value_or(0), id());
}

} // namespace larkspan
