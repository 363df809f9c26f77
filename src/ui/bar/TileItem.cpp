#include "ui/bar/TileItem.h"

#include <QQuickWindow>
#include <QSGImageNode>

#include <cmath>

namespace larkspan::ui {

TileItem::TileItem(QQuickItem* parent)
    : QQuickItem(parent) {
    setFlag(ItemHasContents);
    setAcceptHoverEvents(true);
    setAcceptedMouseButtons(Qt::LeftButton | Qt::RightButton | Qt::MiddleButton);
}

void TileItem::setImage(const QVariant& image) {
    const auto next = image.value<ImageRef>();
    if (next == image_) return;
    image_ = next;
    redraw();
}

void TileItem::setIcons(IconCache* icons) {
    icons_ = icons;
    if (!icons_) return;
    connect(icons_, &IconCache::refined, this, [this](const QString& identity) {
        if (image_ && identity.toStdString() == image_->identity()) redraw();
    });
}

void TileItem::setIconSize(double size) {
    if (size == iconSize_) return;
    iconSize_ = size;
    redraw();
    Q_EMIT iconChanged();
}

void TileItem::setIconTop(double top) {
    if (top == iconTop_) return;
    iconTop_ = top;
    update();
    Q_EMIT iconChanged();
}

void TileItem::redraw() {
    isPictureStale_ = true;
    update();
}

QSGNode* TileItem::updatePaintNode(QSGNode* oldNode, UpdatePaintNodeData*) {
    auto* node = static_cast<QSGImageNode*>(oldNode);
    if (!node) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        node->setFiltering(QSGTexture::Linear);
        isPictureStale_ = true;
    }
    const double ratio = window()->effectiveDevicePixelRatio();
    if (isPictureStale_ && icons_) {
        const int pixels = static_cast<int>(std::lround(iconSize_ * ratio));
        const QImage picture = icons_->picture(image_, name_, pixels);
        node->setTexture(window()->createTextureFromImage(picture));
        node->setSourceRect(QRectF(picture.rect()));
        isPictureStale_ = false;
    }
    // A picture that is not square keeps its proportions inside the square.
    const QSizeF fitted =
        QSizeF(node->texture()->textureSize()).scaled(iconSize_, iconSize_, Qt::KeepAspectRatio);
    const auto toPixel = [ratio](double value) { return std::round(value * ratio) / ratio; };
    node->setRect(QRectF(toPixel((width() - fitted.width()) / 2),
                         toPixel(iconTop_ + (iconSize_ - fitted.height()) / 2), fitted.width(),
                         fitted.height()));
    return node;
}

void TileItem::itemChange(ItemChange change, const ItemChangeData& data) {
    if (change == ItemDevicePixelRatioHasChanged) redraw();
    QQuickItem::itemChange(change, data);
}

void TileItem::hoverEnterEvent(QHoverEvent*) {
    setHovered(true);
}
void TileItem::hoverLeaveEvent(QHoverEvent*) {
    setHovered(false);
}

void TileItem::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::RightButton) {
        Q_EMIT menuRequested();
        return;
    }
    pressedButton_ = event->button();
    setPressed(true);
}

void TileItem::mouseMoveEvent(QMouseEvent* event) {
    if (event->buttons() & pressedButton_) setPressed(contains(event->position()));
}

void TileItem::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() != pressedButton_) return;
    const bool isClick = isPressed_ && contains(event->position());
    setPressed(false);
    if (isClick) Q_EMIT clicked(event->button(), event->modifiers());
}

void TileItem::mouseUngrabEvent() {
    setPressed(false);
}

void TileItem::setHovered(bool isHovered) {
    if (isHovered == isHovered_) return;
    isHovered_ = isHovered;
    Q_EMIT hoveredChanged();
}

void TileItem::setPressed(bool isPressed) {
    if (isPressed == isPressed_) return;
    isPressed_ = isPressed;
    Q_EMIT pressedChanged();
}

} // namespace larkspan::ui
