#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace larkspan::ui {

/// One step from one list to another. Indices count in the list as the steps before have left it.
struct ListChange {
    enum class Kind { remove, insert, move };
    Kind kind;
    /// Where the element is (remove, move).
    std::size_t from = 0;
    /// Where the element will be (insert, move).
    std::size_t to = 0;
    /// Its index in the new list (insert, move).
    std::size_t element = 0;
    bool operator==(const ListChange&) const = default;
};

/// The fewest removes, inserts and moves that turn a list of `oldCount` elements into the one that
/// `sources` describes: for each new element the index it had in the old list, or nothing for one
/// that is new. No old index may stand there twice.
std::vector<ListChange> listChanges(std::size_t oldCount,
                                    const std::vector<std::optional<std::size_t>>& sources);

} // namespace larkspan::ui
