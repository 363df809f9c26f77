#include "ui/demo/DemoDesktop.h"

#include "ui/demo/Scenery.h"

#include <QDateTime>
#include <QMouseEvent>

#include <algorithm>

namespace larkspan::ui {

namespace {

QRectF rectOf(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

QRectF menuBarOf(const sim::World& world, const sim::Display& display) {
    return {display.bounds.x, display.bounds.y, display.bounds.width, world.menuBarHeight};
}

} // namespace

DemoDesktop::DemoDesktop(sim::SimMac& mac, QQuickItem* parent)
    : QQuickPaintedItem(parent)
    , mac_(mac) {
    setAcceptedMouseButtons(Qt::LeftButton);
    setOpaquePainting(true);
}

QSizeF DemoDesktop::extent() const {
    QSizeF size;
    for (const sim::Display& display : mac_.world().displays)
        size = size.expandedTo({display.bounds.maxX(), display.bounds.maxY()});
    return size;
}

void DemoDesktop::paint(QPainter* painter) {
    painter->fillRect(QRectF(QPointF(), size()), QColor(16, 16, 20));
    for (const sim::Display& display : mac_.world().displays) {
        painter->save();
        painter->setClipRect(rectOf(display.bounds));
        paintWallpaper(*painter, rectOf(display.bounds));
        if (display.shown().type != 4) paintMenuBars(*painter, display);
        paintWindows(*painter, display);
        painter->restore();
    }
}

void DemoDesktop::paintMenuBars(QPainter& painter, const sim::Display& display) const {
    const auto& world = mac_.world();
    const sim::App* front = world.app(world.frontmost);
    const auto seconds = static_cast<qint64>(world.scheduler.wallClock());
    const QString clock = QDateTime::fromSecsSinceEpoch(seconds).toUTC().toString("ddd HH:mm");
    paintMenuBar(painter, menuBarOf(world, display),
                 QString::fromStdString(front ? front->name : ""), clock,
                 !mac_.statusBar.items().empty());
}

void DemoDesktop::paintWindows(QPainter& painter, const sim::Display& display) const {
    const auto& world = mac_.world();
    const auto shows = [&](const sim::Window& window) {
        return world.isOnScreen(window) && !intersection(window.frame, display.bounds).isEmpty();
    };
    const auto front = std::find_if(world.windows.begin(), world.windows.end(), [&](const auto& w) {
        return world.isOnScreen(w) && w.pid == world.frontmost;
    });
    for (auto window = world.windows.rbegin(); window != world.windows.rend(); ++window) {
        if (!shows(*window)) continue;
        const sim::App* owner = world.app(window->pid);
        paintWindow(painter, {.frame = rectOf(window->frame),
                              .title = QString::fromStdString(window->title),
                              .app = QString::fromStdString(owner->bundleIdentifier.value_or("")),
                              .isFront = front != world.windows.end() && front->id == window->id,
                              .isFullScreen = window->frameBeforeFullScreen.has_value()});
    }
}

const sim::Window* DemoDesktop::windowAt(QPointF point) const {
    for (const sim::Window& window : mac_.world().windows) {
        if (mac_.world().isOnScreen(window) && rectOf(window.frame).contains(point)) return &window;
    }
    return nullptr;
}

bool DemoDesktop::pressMenuBar(QPointF point) {
    const auto& items = mac_.statusBar.items();
    for (const sim::Display& display : mac_.world().displays) {
        const QRectF bar = menuBarOf(mac_.world(), display);
        if (systemMenuFrame(bar).contains(point) && onSystemMenu) {
            onSystemMenu(systemMenuFrame(bar));
            return true;
        }
        const QRectF item = statusItemFrame(bar);
        if (items.empty() || !item.contains(point) || !onStatusItem) continue;
        onStatusItem(items.front().menu, item);
        return true;
    }
    return false;
}

void DemoDesktop::pressWindow(const sim::Window& window, QPointF point) {
    const WindowId id = window.id;
    const QRectF frame = rectOf(window.frame);
    const bool isFullScreen = window.frameBeforeFullScreen.has_value();
    if (windowButton(frame, 0).contains(point)) {
        mac_.closeWindow(id);
    } else if (windowButton(frame, 1).contains(point)) {
        mac_.minimize(id);
    } else if (windowButton(frame, 2).contains(point)) {
        if (isFullScreen)
            mac_.leaveFullScreen(id);
        else
            mac_.enterFullScreen(id);
    } else {
        mac_.focusWindow(id);
        if (point.y() > frame.top() + titleBarHeight || isFullScreen) return;
        dragged_ = id;
        grip_ = point - frame.topLeft();
    }
}

void DemoDesktop::mousePressEvent(QMouseEvent* event) {
    const QPointF point = event->position();
    if (!pressMenuBar(point)) {
        if (const sim::Window* window = windowAt(point))
            pressWindow(*window, point);
        else
            mac_.activate(mac_.finder());
    }
    used();
}

void DemoDesktop::mouseMoveEvent(QMouseEvent* event) {
    const sim::Window* window = mac_.world().window(dragged_);
    if (!window) return;
    const QPointF corner = event->position() - grip_;
    // A title bar that slid under the menu bar could not be taken hold of again.
    const double top = std::max(corner.y(), mac_.world().menuBarHeight);
    mac_.moveWindow(dragged_, {corner.x(), top, window->frame.width, window->frame.height});
    used();
}

void DemoDesktop::mouseReleaseEvent(QMouseEvent*) {
    dragged_ = 0;
}

void DemoDesktop::used() {
    if (onUse) onUse();
}

} // namespace larkspan::ui
