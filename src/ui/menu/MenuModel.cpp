#include "ui/menu/MenuModel.h"

namespace larkspan::ui {

namespace {

MenuModel::Kind viewKind(MenuItem::Kind kind) {
    switch (kind) {
    case MenuItem::Kind::action:
        return MenuModel::Action;
    case MenuItem::Kind::separator:
        return MenuModel::Separator;
    case MenuItem::Kind::heading:
        return MenuModel::Heading;
    case MenuItem::Kind::submenu:
        return MenuModel::Submenu;
    }
    return MenuModel::Action;
}

MenuModel::Mark viewMark(MenuItem::Mark mark) {
    switch (mark) {
    case MenuItem::Mark::none:
        return MenuModel::NoMark;
    case MenuItem::Mark::check:
        return MenuModel::Check;
    case MenuItem::Mark::diamond:
        return MenuModel::Diamond;
    }
    return MenuModel::NoMark;
}

} // namespace

int MenuModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(lines_.size());
}

QVariant MenuModel::data(const QModelIndex& index, int role) const {
    if (!index.isValid() || index.row() >= rowCount()) return {};
    const auto& [line, depth] = lines_[static_cast<std::size_t>(index.row())];
    const MenuItem& item = this->item(index.row());
    switch (role) {
    case TitleRole:
        return QString::fromStdString(item.title);
    case OtherTitleRole:
        return QString::fromStdString(line.alternate && !showsAlternates_ ? line.alternate->title
                                                                          : line.title);
    case KindRole:
        return viewKind(item.kind);
    case EnabledRole:
        return canChoose(index.row());
    case MarkRole:
        return viewMark(item.mark);
    case DepthRole:
        return depth;
    default:
        return {};
    }
}

QHash<int, QByteArray> MenuModel::roleNames() const {
    return {{TitleRole, "title"}, {OtherTitleRole, "otherTitle"},
            {KindRole, "kind"},   {EnabledRole, "isChoice"},
            {MarkRole, "mark"},   {DepthRole, "depth"}};
}

void MenuModel::setMenu(const Menu& menu) {
    beginResetModel();
    lines_.clear();
    addLines(menu, 0);
    endResetModel();
}

void MenuModel::setShowsAlternates(bool showsAlternates) {
    if (showsAlternates == showsAlternates_) return;
    showsAlternates_ = showsAlternates;
    for (int row = 0; row < rowCount(); ++row)
        if (lines_[static_cast<std::size_t>(row)].item.alternate)
            Q_EMIT dataChanged(index(row), index(row));
}

const MenuItem& MenuModel::item(int row) const {
    const MenuItem& line = lines_[static_cast<std::size_t>(row)].item;
    return showsAlternates_ && line.alternate ? *line.alternate : line;
}

void MenuModel::addLines(const Menu& menu, int depth) {
    for (const MenuItem& item : menu) {
        lines_.push_back({item, depth});
        addLines(item.submenu, depth + 1);
    }
}

bool MenuModel::canChoose(int row) const {
    if (row < 0 || row >= rowCount()) return false;
    const MenuItem& line = item(row);
    return line.kind == MenuItem::Kind::action && line.isEnabled;
}

int MenuModel::nextChoice(int row, int direction) const {
    const int count = rowCount();
    // From nowhere, forwards leads to the first line and backwards to the last.
    int next = row < 0 && direction < 0 ? 0 : row;
    for (int step = 0; step < count; ++step) {
        next = (next + direction + count) % count;
        if (canChoose(next)) return next;
    }
    return -1;
}

int MenuModel::nextNamed(int row, const QString& text) const {
    int next = row;
    for (int step = 0; step < rowCount(); ++step) {
        next = nextChoice(next, 1);
        if (next < 0) break;
        const QString title = QString::fromStdString(item(next).title);
        if (title.startsWith(text, Qt::CaseInsensitive)) return next;
    }
    return row;
}

} // namespace larkspan::ui
