#include "ui/demo/DemoPermissions.h"

#include "ui/demo/DemoLayer.h"
#include "ui/demo/Scenery.h"

#include <QMouseEvent>

#include <cmath>

namespace larkspan::ui {

DemoPermissions::DemoPermissions(const sim::SimMac& mac, PermissionsModel& permissions,
                                 Views& views, Appearance& appearance, QQuickItem& desktop)
    : QQuickPaintedItem(&desktop)
    , mac_(mac)
    , permissions_(permissions)
    , views_(views)
    , viewModel_(permissions, appearance)
    , observation_(permissions.isShown.observe([this] { show(); })) {
    setZ(DemoLayer::permissions);
    setAcceptedMouseButtons(Qt::LeftButton);
    setVisible(false);
}

DemoPermissions::~DemoPermissions() {
    view_.reset();
}

void DemoPermissions::show() {
    setVisible(*permissions_.isShown);
    if (view_ || !isVisible()) return;
    view_ =
        views_.make("permissions/PermissionsView", {{"viewModel", QVariant::fromValue(&viewModel_)},
                                                    {"cornerRadius", windowCornerRadius}});
    view_->setParentItem(this);
    view_->setPosition({windowShadow, windowShadow + titleBarHeight});
    setSize(
        {view_->width() + 2 * windowShadow, view_->height() + titleBarHeight + 2 * windowShadow});
    const Rect screen =
        mac_.world().displays.empty() ? Rect{} : mac_.world().displays.front().bounds;
    setPosition({std::round(screen.x + (screen.width - width()) / 2),
                 std::round(screen.y + (screen.height - height()) / 2)});
}

QRectF DemoPermissions::frame() const {
    return QRectF(QPointF(), size())
        .adjusted(windowShadow, windowShadow, -windowShadow, -windowShadow);
}

void DemoPermissions::paint(QPainter* painter) {
    paintWindow(*painter,
                {.frame = frame(), .title = "Larkspan", .isFront = true, .background = Qt::white});
}

void DemoPermissions::mousePressEvent(QMouseEvent* event) {
    const QPointF point = event->position();
    if (!frame().contains(point)) {
        event->ignore();
        return;
    }
    if (windowButton(frame(), 0).contains(point))
        permissions_.close();
    else
        grip_ = point;
}

void DemoPermissions::mouseMoveEvent(QMouseEvent* event) {
    if (grip_.y() > frame().top() + titleBarHeight) return;
    setPosition(position() + event->position() - grip_);
}

} // namespace larkspan::ui
