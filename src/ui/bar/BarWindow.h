#pragma once

#include <QQuickWindow>

namespace larkspan::ui {

/// The bar's native window: never focused by a click, but it can take the keyboard for a while.
class BarWindow : public QQuickWindow {
    Q_OBJECT

  public:
    BarWindow();

    /// Takes the keyboard, and the pointer so that a click elsewhere is noticed; false while
    /// another program holds the keyboard.
    bool takeKeyboard();
    void releaseKeyboard();

  Q_SIGNALS:
    void keyPressed(QKeyEvent* event);
    void pressed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
};

} // namespace larkspan::ui
