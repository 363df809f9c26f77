#include "ui/bar/TileModel.h"

#include "ui/bar/TileItem.h"

#include <QStringList>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace larkspan::ui {

namespace {

using Sources = std::vector<std::optional<std::size_t>>;

bool isRunningSection(const TileRow& row) {
    return row.section == TileRow::Section::windows || row.section == TileRow::Section::background;
}

/// For each new row the old row that it continues: the same tile, or else a running app's tile
/// that left its group for another or for the background.
Sources continuedRows(const std::vector<TileModel::Tile>& oldTiles,
                      const std::vector<TileRow>& newRows) {
    std::map<std::string, std::size_t> left;
    for (std::size_t i = 0; i < oldTiles.size(); ++i)
        left.emplace(oldTiles[i].row.key(), i);
    Sources sources(newRows.size());
    for (std::size_t i = 0; i < newRows.size(); ++i) {
        if (const auto old = left.extract(newRows[i].key())) sources[i] = old.mapped();
    }
    std::multimap<std::string, std::size_t> moved;
    for (const auto& [key, i] : left)
        if (isRunningSection(oldTiles[i].row)) moved.emplace(oldTiles[i].row.item.id, i);
    for (std::size_t i = 0; i < newRows.size(); ++i) {
        if (sources[i] || !isRunningSection(newRows[i])) continue;
        if (const auto old = moved.extract(newRows[i].item.id)) sources[i] = old.mapped();
    }
    return sources;
}

/// Only these are told to the view: telling all would bind every property of every tile anew.
QList<int> changedRoles(const TileModel::Tile& before, const TileModel::Tile& after) {
    QList<int> roles;
    const auto compare = [&](bool differs, int role) {
        if (differs) roles << role;
    };
    compare(before.x != after.x, TileModel::SlotXRole);
    compare(before.row.item.icon != after.row.item.icon, TileModel::ImageRole);
    compare(before.row.item.name != after.row.item.name, TileModel::NameRole);
    compare(before.row.dot != after.row.dot, TileModel::DotRole);
    compare(before.row.isFront != after.row.isFront, TileModel::FrontRole);
    compare(before.row.isRing != after.row.isRing, TileModel::QuietRole);
    compare(before.row.isLaunching != after.row.isLaunching, TileModel::LaunchingRole);
    compare(before.row.wantsAttention != after.row.wantsAttention, TileModel::AttentionRole);
    compare(before.row.badge != after.row.badge, TileModel::BadgeRole);
    compare(statusText(before.row) != statusText(after.row), TileModel::StatusRole);
    return roles;
}

} // namespace

QString statusText(const TileRow& row) {
    QStringList parts;
    if (row.isLaunching)
        parts << "opening";
    else if (row.item.app)
        parts << "running";
    if (row.isFront) parts << "in front";
    if (row.item.app && row.item.app->isHidden) parts << "hidden";
    if (row.wantsAttention) parts << "wants attention";
    if (!row.badge.empty()) parts << "badge " + QString::fromStdString(row.badge);
    if (row.isRing) parts << "on another desktop";
    if (row.item.isPinned) parts << "pinned";
    return parts.join(", ");
}

QString badgeText(const std::string& badge) {
    const QString text = QString::fromStdString(badge).simplified();
    bool isNumber = false;
    const auto number = text.toLongLong(&isNumber);
    const bool isTooLong = text.size() > 18 && std::all_of(text.begin(), text.end(),
                                                           [](QChar c) { return c.isDigit(); });
    return isTooLong || (isNumber && number > 99) ? QStringLiteral("99+") : text;
}

int TileModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(tiles_.size());
}

QVariant TileModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Tile& tile = tiles_[static_cast<std::size_t>(index.row())];
    const auto& [row, x] = tile;
    switch (role) {
    case ImageRole:
        return QVariant::fromValue(row.item.icon);
    case Qt::DisplayRole:
    case NameRole:
        return QString::fromStdString(row.item.name);
    case StatusRole:
        return statusText(row);
    case SlotXRole:
        return x;
    case DotRole:
        return static_cast<int>(row.dot);
    case FrontRole:
        return row.isFront;
    case QuietRole:
        return row.isRing;
    case LaunchingRole:
        return row.isLaunching;
    case AttentionRole:
        return row.wantsAttention;
    case BadgeRole:
        return badgeText(row.badge);
    case FlightXRole:
        return flightX(tile);
    default:
        return {};
    }
}

/// How far from its place a tile starts that flies in: on its pinned tile, which stands elsewhere
/// by now when the bar has become wider, and on every bar at its own place.
double TileModel::flightX(const Tile& tile) const {
    if (!tile.row.fliesIn) return 0;
    const auto pinned = std::find_if(tiles_.begin(), tiles_.end(), [&](const Tile& other) {
        return other.row.section == TileRow::Section::pinned &&
               other.row.item.id == tile.row.item.id;
    });
    return pinned == tiles_.end() ? 0 : pinned->x - tile.x;
}

int TileModel::indexOf(const std::string& key) const {
    const auto tile = std::find_if(tiles_.begin(), tiles_.end(), [&](const Tile& candidate) {
        return candidate.row.key() == key;
    });
    return tile == tiles_.end() ? -1 : static_cast<int>(tile - tiles_.begin());
}

QHash<int, QByteArray> TileModel::roleNames() const {
    return {{ImageRole, "image"},
            {NameRole, "name"},
            {StatusRole, "status"},
            {SlotXRole, "slotX"},
            {DotRole, "dot"},
            {FrontRole, "isFront"},
            {QuietRole, "isQuiet"},
            {LaunchingRole, "isLaunching"},
            {AttentionRole, "wantsAttention"},
            {BadgeRole, "badge"},
            {FlightXRole, "flightX"}};
}

void TileModel::setRows(std::vector<TileRow> rows, const std::vector<double>& tileX) {
    const auto sources = continuedRows(tiles_, rows);
    std::vector<Tile> target;
    for (std::size_t i = 0; i < rows.size(); ++i)
        target.push_back({std::move(rows[i]), tileX[i]});
    for (const ListChange& change : listChanges(tiles_.size(), sources))
        apply(change, target);
    takeContents(std::move(target));
}

void TileModel::apply(const ListChange& change, const std::vector<Tile>& target) {
    const auto from = static_cast<int>(change.from);
    const auto to = static_cast<int>(change.to);
    switch (change.kind) {
    case ListChange::Kind::remove:
        beginRemoveRows({}, from, from);
        tiles_.erase(tiles_.begin() + from);
        endRemoveRows();
        return;
    case ListChange::Kind::insert:
        beginInsertRows({}, to, to);
        tiles_.insert(tiles_.begin() + to, target[change.element]);
        endInsertRows();
        return;
    case ListChange::Kind::move:
        // The toolkit names the row before which the moved one goes, with it still in its place.
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        Tile tile = std::move(tiles_[change.from]);
        tiles_.erase(tiles_.begin() + from);
        tiles_.insert(tiles_.begin() + to, std::move(tile));
        endMoveRows();
        return;
    }
}

void TileModel::takeContents(std::vector<Tile> target) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (target[i] == tiles_[i]) continue;
        QList<int> roles = changedRoles(tiles_[i], target[i]);
        tiles_[i] = std::move(target[i]);
        const QModelIndex place = index(static_cast<int>(i));
        if (!roles.isEmpty()) Q_EMIT dataChanged(place, place, roles);
    }
}

} // namespace larkspan::ui
