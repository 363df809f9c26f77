#include "ui/bar/ListChanges.h"

#include <algorithm>

namespace larkspan::ui {

namespace {

using Sources = std::vector<std::optional<std::size_t>>;

/// Which new elements can stay where they are relative to each other: a longest increasing run of
/// old indices. All others have to move.
std::vector<bool> stayingElements(const Sources& sources) {
    std::vector<std::size_t> tails; // tails[n]: the element that ends the best run of length n + 1
    std::vector<std::optional<std::size_t>> before(sources.size());
    for (std::size_t i = 0; i < sources.size(); ++i) {
        if (!sources[i]) continue;
        const auto place = std::lower_bound(
            tails.begin(), tails.end(), *sources[i],
            [&](std::size_t element, std::size_t old) { return *sources[element] < old; });
        if (place != tails.begin()) before[i] = *(place - 1);
        if (place == tails.end())
            tails.push_back(i);
        else
            *place = i;
    }
    std::vector<bool> stays(sources.size(), false);
    std::optional<std::size_t> element;
    if (!tails.empty()) element = tails.back();
    for (; element; element = before[*element])
        stays[*element] = true;
    return stays;
}

/// Removes what has no new place; returns the old indices that are left.
std::vector<std::size_t> removeGone(std::size_t oldCount, const Sources& sources,
                                    std::vector<ListChange>& changes) {
    std::vector<bool> isKept(oldCount, false);
    for (const auto& source : sources)
        if (source) isKept[*source] = true;
    std::vector<std::size_t> left;
    for (std::size_t i = 0; i < oldCount; ++i)
        if (isKept[i]) left.push_back(i);
    for (std::size_t i = oldCount; i-- > 0;)
        if (!isKept[i]) changes.push_back({ListChange::Kind::remove, i, 0});
    return left;
}

} // namespace

std::vector<ListChange> listChanges(std::size_t oldCount, const Sources& sources) {
    std::vector<ListChange> changes;
    // New elements take numbers behind the old ones, to be told apart in `list`.
    std::vector<std::size_t> list = removeGone(oldCount, sources, changes);
    const std::vector<bool> stays = stayingElements(sources);
    const auto number = [&](std::size_t i) { return sources[i].value_or(oldCount + i); };

    // Every element is put right behind the one before it, which stands already.
    for (std::size_t i = 0; i < sources.size(); ++i) {
        if (stays[i]) continue;
        if (sources[i]) {
            const auto at = std::find(list.begin(), list.end(), *sources[i]);
            const auto from = static_cast<std::size_t>(at - list.begin());
            list.erase(at);
            changes.push_back({ListChange::Kind::move, from, 0, i});
        } else {
            changes.push_back({ListChange::Kind::insert, 0, 0, i});
        }
        auto place = list.begin();
        if (i > 0) place = std::find(list.begin(), list.end(), number(i - 1)) + 1;
        changes.back().to = static_cast<std::size_t>(place - list.begin());
        list.insert(place, number(i));
    }
    std::erase_if(changes, [](const ListChange& change) {
        return change.kind == ListChange::Kind::move && change.from == change.to;
    });
    return changes;
}

} // namespace larkspan::ui
