#pragma once

#include <QQuickWindow>

namespace larkspan::ui {

/// The bar's native window: never focused by a click, but it can take the keyboard for a while.
class BarWindow : public QQuickWindow {
    Q_OBJECT

  public:
    BarWindow();

    void takeKeyboard();
    void releaseKeyboard();

  Q_SIGNALS:
    void keyPressed(QKeyEvent* event);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace larkspan::ui
