#pragma once

#include "platform/Menu.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace larkspan::ui {

/// A menu's lines for its view. The lines of a submenu stand indented below its title: a menu of a
/// tile is short, and nothing has to be opened to be found.
class MenuModel : public QAbstractListModel {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to a menu")

  public:
    enum Kind { Action, Separator, Heading, Submenu };
    Q_ENUM(Kind)
    enum Mark { NoMark, Check, Diamond };
    Q_ENUM(Mark)

    enum Role {
        TitleRole = Qt::UserRole,
        OtherTitleRole,
        KindRole,
        EnabledRole,
        MarkRole,
        DepthRole
    };

    int rowCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QHash<int, QByteArray> roleNames() const override;

    void setMenu(const Menu& menu);
    /// Whether lines that have an alternate show it.
    void setShowsAlternates(bool showsAlternates);
    bool canChoose(int row) const;
    /// The line as it shows.
    const MenuItem& item(int row) const;
    /// The next line from `row` in that direction that can be chosen, around the ends; -1 for none.
    int nextChoice(int row, int direction) const;
    /// The next one that starts with the text.
    int nextNamed(int row, const QString& text) const;

  private:
    struct Line {
        MenuItem item;
        int depth;
    };
    void addLines(const Menu& menu, int depth);

    std::vector<Line> lines_;
    bool showsAlternates_ = false;
};

} // namespace larkspan::ui
