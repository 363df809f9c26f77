#include "ui/demo/DemoBarPanel.h"

#include "ui/demo/DemoLayer.h"
#include "ui/demo/Scenery.h"
#include "ui/parts/Pictures.h"

#include <QImage>
#include <QPainter>

#include <cmath>

namespace larkspan::ui {

DemoBarPanel::DemoBarPanel(Views& views, QQuickItem& desktop, std::unique_ptr<BarScene> scene,
                           BarLook& look)
    : look_(look)
    , scene_(std::move(scene))
    , root_(views.make("bar/Bar", {{"scene", QVariant::fromValue(scene_.get())}})) {
    root_->setParentItem(&desktop);
    root_->setZ(DemoLayer::bars);
    root_->setVisible(false);
    observations_.push_back(look_.glass.observe([this] { updateSurface(); }));
    observations_.push_back(look_.glassBlur.observe([this] { updateSurface(); }));
}

DemoBarPanel::~DemoBarPanel() {
    root_.reset();
}

void DemoBarPanel::place(const Screen& screen, double height) {
    screen_ = screen;
    height_ = std::round(height);
    root_->setPosition(QPointF(screen.bounds.x, screen.bounds.maxY() - height_));
    root_->setSize(QSizeF(screen.bounds.width, height_));
    updateSurface();
    scene_->place(screen.display, {screen.bounds.width, height_});
}

void DemoBarPanel::orderIn() {
    scene_->refresh();
    root_->setVisible(true);
}

void DemoBarPanel::orderOut() {
    root_->setVisible(false);
}

/// The demo's window has the keyboard for itself and hands it to no bar.
bool DemoBarPanel::takeKeyboard() {
    return false;
}

Rect DemoBarPanel::barFrame() const {
    const QRectF glass = scene_->glass();
    return {screen_.frame.x + glass.x(), screen_.frame.y + height_ - glass.bottom(), glass.width(),
            glass.height()};
}

Rect DemoBarPanel::tileOnScreen(int index) const {
    const QRectF tile = scene_->tileFrame(index);
    return {screen_.frame.x + tile.x(), screen_.frame.y + height_ - tile.bottom(), tile.width(),
            tile.height()};
}

QRectF DemoBarPanel::tileOnDesktop(int index) const {
    return scene_->tileFrame(index).translated(root_->position());
}

QRectF DemoBarPanel::placeOnDesktop(double x) const {
    const QRectF glass = scene_->glass();
    return QRectF(x, glass.top(), 0, glass.height()).translated(root_->position());
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
    scene_->setSurface({.backdrop = frosted(picture, *look_.glassBlur * strength)});
}

} // namespace larkspan::ui
