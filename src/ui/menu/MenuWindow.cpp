#include "ui/menu/MenuWindow.h"

#include "ui/bar/clickModifiers.h"
#include "ui/parts/Shape.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QQuickItem>

#include <algorithm>
#include <cmath>

namespace larkspan::ui {

namespace {

constexpr double menuDistance = 6;
constexpr double menuRadius = 10;

} // namespace

MenuWindow::MenuWindow(Views& views, Appearance& appearance)
    : appearance_(appearance) {
    setFlags(Qt::Popup | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setColor(Qt::transparent);
    root_ = views.make("menu/MenuPanel", {{"menu", QVariant::fromValue(this)}});
    root_->setParentItem(contentItem());
}

MenuWindow::~MenuWindow() {
    root_.reset();
}

void MenuWindow::open(const Menu& menu, const QRectF& anchor, const QRectF& screen,
                      bool isTranslucent) {
    // Menus grow upwards, so the lit line is as far from the end as before.
    const bool isSame = isVisible() && anchor == anchor_ && current_ >= 0;
    const int fromEnd = lines_.rowCount() - current_;
    anchor_ = anchor;
    // No wider than its lines from here on: the last menu may have been.
    root_->setSize(QSizeF());
    lines_.setShowsAlternates(isOptionHeld(QGuiApplication::queryKeyboardModifiers()));
    lines_.setMenu(menu);
    setCurrent(isSame ? lines_.rowCount() - fromEnd : -1);
    // The lines are put below each other only now, and how high they are is needed first.
    root_->findChild<QQuickItem*>("lines")->ensurePolished();
    const QSizeF size(std::ceil(root_->implicitWidth()), std::ceil(root_->implicitHeight()));
    root_->setSize(size);
    const double x = std::clamp(
        anchor.center().x() - size.width() / 2, screen.left() + menuDistance,
        std::max(screen.left() + menuDistance, screen.right() - menuDistance - size.width()));
    const double y = std::max(screen.top(), anchor.top() - menuDistance - size.height());
    setGeometry(QRect(QPointF(x, y).toPoint(), size.toSize()));
    root_->setProperty("cutsCorners", !isTranslucent);
    setMask(isTranslucent ? QRegion() : roundedRegion(QRectF(QPointF(), size), menuRadius));
    show();
}

bool MenuWindow::event(QEvent* event) {
    const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease;
    // An event of the key itself may come with the modifiers as they were before it.
    if (isKey && isOptionKey(static_cast<QKeyEvent*>(event)->key()))
        lines_.setShowsAlternates(event->type() == QEvent::KeyPress);
    else if (const auto* input = dynamic_cast<QInputEvent*>(event))
        lines_.setShowsAlternates(isOptionHeld(input->modifiers()));
    return QQuickWindow::event(event);
}

void MenuWindow::exposeEvent(QExposeEvent* event) {
    QQuickWindow::exposeEvent(event);
    if (!isExposed()) return;
    // Only a window that is on screen can hold them.
    setMouseGrabEnabled(true);
    setKeyboardGrabEnabled(true);
}

void MenuWindow::hideEvent(QHideEvent* event) {
    setMouseGrabEnabled(false);
    setKeyboardGrabEnabled(false);
    QQuickWindow::hideEvent(event);
    Q_EMIT closed();
}

void MenuWindow::setCurrent(int row) {
    const int next = lines_.canChoose(row) ? row : -1;
    if (next == current_) return;
    current_ = next;
    Q_EMIT currentChanged();
}

void MenuWindow::choose(int row) {
    if (!lines_.canChoose(row)) return;
    // A copy: the action may open the menu again.
    const auto action = lines_.item(row).action;
    Q_EMIT chosen();
    hide();
    if (action) action();
}

void MenuWindow::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
    case Qt::Key_Escape:
        hide();
        break;
    case Qt::Key_Down:
        setCurrent(lines_.nextChoice(current_, 1));
        break;
    case Qt::Key_Up:
        setCurrent(lines_.nextChoice(current_, -1));
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        choose(current_);
        break;
    default:
        if (!event->text().isEmpty()) setCurrent(lines_.nextNamed(current_, event->text()));
    }
}

void MenuWindow::mousePressEvent(QMouseEvent* event) {
    if (QRectF(QPointF(), size()).contains(event->position()))
        QQuickWindow::mousePressEvent(event);
    else
        hide();
}

} // namespace larkspan::ui
