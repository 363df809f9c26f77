#include "ui/demo/DemoBarPanel.h"

#include "ui/demo/DemoLayer.h"
#include "ui/demo/Scenery.h"
#include "ui/parts/Pictures.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace larkspan::ui {

DemoBarPanel::DemoBarPanel(Views& views, QQuickItem& desktop, std::unique_ptr<BarViewModel> model,
                           BarLook& look)
    : look_(look)
    , model_(std::move(model))
    , root_(views.make("bar/Bar", {{"bar", QVariant::fromValue(model_.get())}})) {
    root_->setParentItem(&desktop);
    root_->setZ(DemoLayer::bars);
    root_->setVisible(false);
    observations_.push_back(look_.glass.observe([this] { updateSurface(); }));
    observations_.push_back(look_.glassBlur.observe([this] { updateSurface(); }));
}

DemoBarPanel::~DemoBarPanel() {
    root_.reset();
}

Size DemoBarPanel::place(const Screen& screen, double height) {
    screen_ = screen;
    height_ = std::round(height);
    const Size size{screen.bounds.width, height_};
    root_->setPosition(QPointF(screen.bounds.x, screen.bounds.maxY() - height_));
    root_->setSize(QSizeF(size.width, size.height));
    updateSurface();
    return size;
}

void DemoBarPanel::orderIn() {
    root_->setVisible(true);
}

void DemoBarPanel::orderOut() {
    root_->setVisible(false);
}

/// The demo's window has the keyboard for itself and hands it to no bar.
bool DemoBarPanel::takeKeyboard() {
    return false;
}

/// Windows keep clear of the bar, so what shines through it is the wallpaper.
void DemoBarPanel::updateSurface() {
    if (height_ <= 0) return;
    const QSizeF size(screen_.bounds.width, height_);
    QImage picture(size.toSize(), QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&picture);
    paintWallpaper(
        painter, {0, height_ - screen_.bounds.height, screen_.bounds.width, screen_.bounds.height});
    painter.end();
    const double strength = *look_.glass == GlassKind::regular ? 4 : 1;
    model_->setSurface({.backdrop = frosted(picture, *look_.glassBlur * strength)});
}

} // namespace larkspan::ui
