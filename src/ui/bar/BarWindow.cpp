#include "ui/bar/BarWindow.h"

namespace larkspan::ui {

namespace {

/// A panel on a Mac could not even take the keyboard when it is asked to if it did not accept the
/// focus at all; there it is dressed so that clicks leave the focus where it is.
#ifdef Q_OS_MACOS
constexpr auto focus = Qt::Tool;
#else
constexpr auto focus = Qt::WindowDoesNotAcceptFocus;
#endif

} // namespace

BarWindow::BarWindow() {
    setFlags(Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint | focus);
    // What a Mac's plugin of the toolkit asks of each window that it shows.
    setProperty("_q_showWithoutActivating", true);
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
