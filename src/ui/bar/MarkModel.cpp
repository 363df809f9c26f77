#include "ui/bar/MarkModel.h"

#include <algorithm>

namespace larkspan::ui {

int MarkModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(marks_.size());
}

QVariant MarkModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const BarMark& mark = marks_[static_cast<std::size_t>(index.row())];
    switch (role) {
    case RingRole:
        return mark.kind == BarMark::Kind::ring;
    case SlotXRole:
        return mark.x;
    case SlotWidthRole:
        return mark.width;
    default:
        return {};
    }
}

QHash<int, QByteArray> MarkModel::roleNames() const {
    return {{RingRole, "isRing"}, {SlotXRole, "slotX"}, {SlotWidthRole, "slotWidth"}};
}

/// Marks have no identity of their own: the n-th becomes the n-th, and the last come and go.
void MarkModel::setMarks(std::vector<BarMark> marks) {
    const std::size_t common = std::min(marks.size(), marks_.size());
    for (std::size_t i = 0; i < common; ++i) {
        if (marks[i] == marks_[i]) continue;
        marks_[i] = marks[i];
        const QModelIndex place = index(static_cast<int>(i));
        Q_EMIT dataChanged(place, place);
    }
    if (marks_.size() > common) {
        beginRemoveRows({}, static_cast<int>(common), static_cast<int>(marks_.size()) - 1);
        marks_.resize(common);
        endRemoveRows();
    } else if (marks.size() > common) {
        beginInsertRows({}, static_cast<int>(common), static_cast<int>(marks.size()) - 1);
        marks_ = std::move(marks);
        endInsertRows();
    }
}

} // namespace larkspan::ui
