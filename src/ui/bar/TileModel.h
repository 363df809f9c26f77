#pragma once

#include "ui/bar/ListChanges.h"
#include "ui/bar/TileRow.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <string>
#include <vector>

namespace larkspan::ui {

/// The tiles of one bar for its view. A new list becomes the fewest moves, inserts and removes, so
/// that tiles travel instead of blinking.
class TileModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

  public:
    enum Role {
        ImageRole = Qt::UserRole,
        NameRole,
        StatusRole,
        SlotXRole,
        DotRole,
        FrontRole,
        QuietRole,
        LaunchingRole,
        AttentionRole,
        BadgeRole,
        FlightXRole,
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    /// `tileX` has the left edge of each row's tile.
    void setRows(std::vector<TileRow> rows, const std::vector<double>& tileX);
    const TileRow& row(int index) const { return tiles_[static_cast<std::size_t>(index)].row; }
    /// The row of that key, or -1.
    int indexOf(const std::string& key) const;

    struct Tile {
        TileRow row;
        double x = 0;
        bool operator==(const Tile&) const = default;
    };

  private:
    double flightX(const Tile& tile) const;
    void apply(const ListChange& change, const std::vector<Tile>& target);
    void takeContents(std::vector<Tile> target);

    std::vector<Tile> tiles_;
};

/// What assistive technology reads out after the tile's name.
QString statusText(const TileRow& row);

/// What a badge has room for: a number over 99 is "99+". The view shortens other texts.
QString badgeText(const std::string& badge);

} // namespace larkspan::ui
