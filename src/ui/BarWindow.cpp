#include "ui/BarWindow.h"

namespace larkspan::ui {

BarWindow::BarWindow() {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    setColor(Qt::transparent);
    setTitle("Larkspan");
}

bool BarWindow::takeKeyboard() {
    if (!setKeyboardGrabEnabled(true)) return false;
    setMouseGrabEnabled(true);
    return true;
}

void BarWindow::releaseKeyboard() {
    setMouseGrabEnabled(false);
    setKeyboardGrabEnabled(false);
}

void BarWindow::mousePressEvent(QMouseEvent* event) {
    Q_EMIT pressed();
    QQuickWindow::mousePressEvent(event);
}

void BarWindow::keyPressEvent(QKeyEvent* event) {
    Q_EMIT keyPressed(event);
}

} // namespace larkspan::ui
