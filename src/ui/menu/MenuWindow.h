#pragma once

#include "ui/menu/MenuModel.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/Views.h"

#include <QQuickWindow>

#include <memory>

namespace larkspan::ui {

/// A menu above a tile, in a window of its own that holds pointer and keyboard until something is
/// chosen or the user clicks elsewhere. Main thread only.
class MenuWindow : public QQuickWindow {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the bars")
    Q_PROPERTY(larkspan::ui::MenuModel* lines READ lines CONSTANT)
    Q_PROPERTY(larkspan::ui::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(int current READ current WRITE setCurrent NOTIFY currentChanged)

  public:
    MenuWindow(Views& views, Appearance& appearance);
    ~MenuWindow() override;

    /// `anchor` is the tile, `screen` what the menu must stay inside; both in the coordinates of
    /// the toolkit's windows. `isTranslucent`: whether the window's corners can be see-through. A
    /// menu that is open above the same place takes the new lines, and its lowest stay where they
    /// are.
    void open(const Menu& menu, const QRectF& anchor, const QRectF& screen, bool isTranslucent);

    MenuModel* lines() { return &lines_; }
    Appearance* appearance() { return &appearance_; }
    int current() const { return current_; }
    void setCurrent(int row);
    Q_INVOKABLE void choose(int row);
    /// For a menu that was opened by a key.
    void lightFirst() { setCurrent(lines_.nextChoice(-1, 1)); }

  Q_SIGNALS:
    void currentChanged();
    void chosen();
    void closed();

  protected:
    bool event(QEvent* event) override;
    void exposeEvent(QExposeEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    Appearance& appearance_;
    MenuModel lines_;
    std::unique_ptr<QQuickItem> root_;
    QRectF anchor_;
    int current_ = -1;
};

} // namespace larkspan::ui
