#include "ui/BarWindow.h"

namespace larkspan::ui {

BarWindow::BarWindow() {
    setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    setColor(Qt::transparent);
    setTitle("Larkspan");
}

void BarWindow::takeKeyboard() {
    setKeyboardGrabEnabled(true);
}
void BarWindow::releaseKeyboard() {
    setKeyboardGrabEnabled(false);
}
void BarWindow::keyPressEvent(QKeyEvent* event) {
    Q_EMIT keyPressed(event);
}

} // namespace larkspan::ui
