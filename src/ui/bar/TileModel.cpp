#include "ui/bar/TileModel.h"

#include "platform/Overload.h"
#include "ui/bar/TileItem.h"
#include "ui/bar/TrashImage.h"

#include <QStringList>

#include <algorithm>
#include <map>
#include <optional>
#include <string>
#include <utility>

namespace larkspan::ui {

namespace {

using Sources = std::vector<std::optional<std::size_t>>;

/// What shows on the tile.
ImageRef imageOf(const BarTile& tile) {
    static const ImageRef emptyTrash = std::make_shared<TrashImage>(true);
    static const ImageRef fullTrash = std::make_shared<TrashImage>(false);
    return std::visit(
        Overload{[](const AppTile& app) { return app.item.icon; },
                 [](const TrashTile& trash) { return trash.isEmpty ? emptyTrash : fullTrash; }},
        tile.payload);
}

TileModel::Dot dotOf(const BarTile& tile) {
    switch (tile.dot) {
    case BarTile::Dot::none:
        return TileModel::NoDot;
    case BarTile::Dot::first:
        return TileModel::FirstDot;
    case BarTile::Dot::gray:
        return TileModel::GrayDot;
    }
    return TileModel::NoDot;
}

bool isRunningSection(const BarTile& tile) {
    return tile.section == BarTile::Section::windows ||
           tile.section == BarTile::Section::background;
}

/// For each new tile the old row that it continues: the same tile, or else a running app's tile
/// that left its group for another or for the background.
Sources continuedRows(const std::vector<TileModel::Row>& oldRows,
                      const std::vector<BarTile>& newTiles) {
    std::map<std::string, std::size_t> left;
    for (std::size_t i = 0; i < oldRows.size(); ++i)
        left.emplace(oldRows[i].tile.key(), i);
    Sources sources(newTiles.size());
    for (std::size_t i = 0; i < newTiles.size(); ++i) {
        if (const auto old = left.extract(newTiles[i].key())) sources[i] = old.mapped();
    }
    std::multimap<std::string, std::size_t> moved;
    for (const auto& [key, i] : left)
        if (isRunningSection(oldRows[i].tile)) moved.emplace(oldRows[i].tile.id(), i);
    for (std::size_t i = 0; i < newTiles.size(); ++i) {
        if (sources[i] || !isRunningSection(newTiles[i])) continue;
        if (const auto old = moved.extract(newTiles[i].id())) sources[i] = old.mapped();
    }
    return sources;
}

/// Only these roles are announced: announcing all would evaluate every binding of every tile again.
QList<int> changedRoles(const TileModel::Row& before, const TileModel::Row& after) {
    QList<int> roles;
    const auto compare = [&](bool differs, int role) {
        if (differs) roles << role;
    };
    const BarTile& old = before.tile;
    const BarTile& tile = after.tile;
    compare(before.x != after.x, TileModel::SlotXRole);
    compare(imageOf(old) != imageOf(tile), TileModel::ImageRole);
    compare(old.name() != tile.name(), TileModel::NameRole);
    compare(old.dot != tile.dot, TileModel::DotRole);
    compare(old.isFront != tile.isFront, TileModel::FrontRole);
    compare(old.isRing != tile.isRing, TileModel::QuietRole);
    compare(old.isLaunching != tile.isLaunching, TileModel::LaunchingRole);
    compare(old.wantsAttention != tile.wantsAttention, TileModel::AttentionRole);
    compare(old.badge != tile.badge, TileModel::BadgeRole);
    compare(statusText(old) != statusText(tile), TileModel::StatusRole);
    return roles;
}

} // namespace

QString statusText(const BarTile& tile) {
    static const DockItem none;
    const DockItem& item = tile.app() ? tile.app()->item : none;
    QStringList parts;
    if (tile.isLaunching)
        parts << "opening";
    else if (item.app)
        parts << "running";
    if (tile.isFront) parts << "in front";
    if (item.app && item.app->isHidden) parts << "hidden";
    if (tile.wantsAttention) parts << "wants attention";
    if (!tile.badge.empty()) parts << "badge " + QString::fromStdString(tile.badge);
    if (tile.isRing) parts << "on another desktop";
    if (item.isPinned) parts << "pinned";
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
    return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

QVariant TileModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const Row& row = rows_[static_cast<std::size_t>(index.row())];
    const auto& [tile, x] = row;
    switch (role) {
    case ImageRole:
        return QVariant::fromValue(imageOf(tile));
    case Qt::DisplayRole:
    case NameRole:
        return QString::fromStdString(tile.name());
    case StatusRole:
        return statusText(tile);
    case SlotXRole:
        return x;
    case DotRole:
        return dotOf(tile);
    case FrontRole:
        return tile.isFront;
    case QuietRole:
        return tile.isRing;
    case LaunchingRole:
        return tile.isLaunching;
    case AttentionRole:
        return tile.wantsAttention;
    case BadgeRole:
        return badgeText(tile.badge);
    case FlightXRole:
        return flightX(row);
    default:
        return {};
    }
}

/// How far from its place a tile starts that flies in: on its pinned tile, which stands elsewhere
/// by now when the bar has become wider, and on every bar at its own place.
double TileModel::flightX(const Row& row) const {
    if (!row.tile.fliesIn) return 0;
    const auto pinned = std::ranges::find_if(rows_, [&](const Row& other) {
        return other.tile.section == BarTile::Section::pinned && other.tile.id() == row.tile.id();
    });
    return pinned == rows_.end() ? 0 : pinned->x - row.x;
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

void TileModel::setTiles(const std::vector<BarTile>& tiles, const std::vector<double>& tileX) {
    const auto sources = continuedRows(rows_, tiles);
    std::vector<Row> target;
    for (std::size_t i = 0; i < tiles.size(); ++i)
        target.push_back({tiles[i], tileX[i]});
    for (const ListChange& change : listChanges(rows_.size(), sources))
        apply(change, target);
    takeContents(std::move(target));
}

void TileModel::apply(const ListChange& change, const std::vector<Row>& target) {
    const auto from = static_cast<int>(change.from);
    const auto to = static_cast<int>(change.to);
    switch (change.kind) {
    case ListChange::Kind::remove:
        beginRemoveRows({}, from, from);
        rows_.erase(rows_.begin() + from);
        endRemoveRows();
        return;
    case ListChange::Kind::insert:
        beginInsertRows({}, to, to);
        rows_.insert(rows_.begin() + to, target[change.element]);
        endInsertRows();
        return;
    case ListChange::Kind::move:
        // The toolkit names the row before which the moved one goes, with it still in its place.
        beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
        Row row = std::move(rows_[change.from]);
        rows_.erase(rows_.begin() + from);
        rows_.insert(rows_.begin() + to, std::move(row));
        endMoveRows();
        return;
    }
}

void TileModel::takeContents(std::vector<Row> target) {
    for (std::size_t i = 0; i < target.size(); ++i) {
        if (target[i] == rows_[i]) continue;
        QList<int> roles = changedRoles(rows_[i], target[i]);
        rows_[i] = std::move(target[i]);
        const QModelIndex place = index(static_cast<int>(i));
        if (!roles.isEmpty()) Q_EMIT dataChanged(place, place, roles);
    }
}

} // namespace larkspan::ui
