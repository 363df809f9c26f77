#pragma once

#include "platform/Image.h"
#include "ui/parts/IconCache.h"

#include <QQuickItem>
#include <QVariant>

namespace larkspan::ui {

/// A tile as the pointer meets it: draws the icon sharp at the screen's pixels and reports
/// hovers and clicks. The whole item takes the clicks, down to the edge of the screen.
class TileItem : public QQuickItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(larkspan::ui::IconCache* icons MEMBER icons_ WRITE setIcons)
    /// An ImageRef.
    Q_PROPERTY(QVariant image READ image WRITE setImage)
    Q_PROPERTY(QString name MEMBER name_ NOTIFY nameChanged)
    Q_PROPERTY(double iconSize READ iconSize WRITE setIconSize NOTIFY iconChanged)
    Q_PROPERTY(double iconTop READ iconTop WRITE setIconTop NOTIFY iconChanged)
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
    Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged)

  public:
    explicit TileItem(QQuickItem* parent = nullptr);

    QVariant image() const { return QVariant::fromValue(image_); }
    void setImage(const QVariant& image);
    void setIcons(IconCache* icons);
    double iconSize() const { return iconSize_; }
    void setIconSize(double size);
    double iconTop() const { return iconTop_; }
    void setIconTop(double top);
    bool isHovered() const { return isHovered_; }
    bool isPressed() const { return isPressed_; }

  Q_SIGNALS:
    void nameChanged();
    void iconChanged();
    void hoveredChanged();
    void pressedChanged();
    void clicked(Qt::MouseButton button, Qt::KeyboardModifiers keys);
    void menuRequested();

  protected:
    QSGNode* updatePaintNode(QSGNode* node, UpdatePaintNodeData*) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;
    void hoverEnterEvent(QHoverEvent*) override;
    void hoverLeaveEvent(QHoverEvent*) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseUngrabEvent() override;

  private:
    void setHovered(bool isHovered);
    void setPressed(bool isPressed);
    void redraw();

    IconCache* icons_ = nullptr;
    ImageRef image_;
    QString name_;
    double iconSize_ = 0;
    double iconTop_ = 0;
    bool isHovered_ = false;
    bool isPressed_ = false;
    /// The one that a click was begun with.
    Qt::MouseButton pressedButton_ = Qt::NoButton;
    bool isPictureStale_ = true;
};

} // namespace larkspan::ui

Q_DECLARE_METATYPE(larkspan::ImageRef)
