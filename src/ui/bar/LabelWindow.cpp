#include "ui/bar/LabelWindow.h"

#include "ui/parts/Shape.h"

#include <algorithm>
#include <cmath>

namespace larkspan::ui {

namespace {

constexpr double labelDistance = 6;
constexpr double labelRadius = 8;

} // namespace

LabelWindow::LabelWindow(Views& views, Appearance& appearance) {
    setFlags(Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowTransparentForInput |
             Qt::WindowDoesNotAcceptFocus | Qt::NoDropShadowWindowHint);
    setColor(Qt::transparent);
    root_ = views.make("bar/TileLabel", {{"appearance", QVariant::fromValue(&appearance)}});
    root_->setParentItem(contentItem());
}

LabelWindow::~LabelWindow() {
    root_.reset();
}

void LabelWindow::showAbove(const QString& text, const QRectF& anchor, const QRectF& screen,
                            bool isTranslucent) {
    root_->setProperty("text", text);
    const QSizeF size(std::ceil(root_->implicitWidth()), std::ceil(root_->implicitHeight()));
    root_->setSize(size);
    const double x = std::clamp(anchor.center().x() - size.width() / 2, screen.left() + 2,
                                std::max(screen.left() + 2, screen.right() - 2 - size.width()));
    const QPointF place(std::round(x), std::round(anchor.top() - labelDistance - size.height()));
    setGeometry(QRect(place.toPoint(), size.toSize()));
    root_->setProperty("cutsCorners", !isTranslucent);
    setMask(isTranslucent ? QRegion() : roundedRegion(QRectF(QPointF(), size), labelRadius));
    show();
}

} // namespace larkspan::ui
