#pragma once

#include "bar/BarTile.h"
#include "ui/bar/ListChanges.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <string>
#include <vector>

namespace larkspan::ui {

/// The tiles of one bar for its view. A new list becomes the fewest moves, inserts and removes, so
/// that tiles travel instead of blinking.
class TileModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to a bar")

  public:
    /// Below the icon, and which of the two colors it takes.
    enum Dot { NoDot, FirstDot, GrayDot };
    Q_ENUM(Dot)

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

    /// `tileX` has the left edge of each tile.
    void setTiles(const std::vector<BarTile>& tiles, const std::vector<double>& tileX);

    struct Row {
        BarTile tile;
        double x = 0;
        bool operator==(const Row&) const = default;
    };

  private:
    double flightX(const Row& row) const;
    void apply(const ListChange& change, const std::vector<Row>& target);
    void takeContents(std::vector<Row> target);

    std::vector<Row> rows_;
};

/// What assistive technology reads out after the tile's name.
QString statusText(const BarTile& tile);

/// What a badge has room for: a number over 99 is "99+". The view shortens other texts.
QString badgeText(const std::string& badge);

} // namespace larkspan::ui
