#pragma once

#include "bar/BarLayout.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace larkspan::ui {

/// The dividers and rings between and around the tiles.
class MarkModel : public QAbstractListModel {
    Q_OBJECT
    QML_ANONYMOUS

  public:
    enum Role { RingRole = Qt::UserRole, SlotXRole, SlotWidthRole };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;
    void setMarks(std::vector<BarMark> marks);

  private:
    std::vector<BarMark> marks_;
};

} // namespace larkspan::ui
