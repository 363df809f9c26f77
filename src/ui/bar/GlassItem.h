#pragma once

#include <QColor>
#include <QImage>
#include <QQuickPaintedItem>

namespace larkspan::ui {

/// A pane of glass: what lies behind it (frosted already), a tint, the sheen from above and a
/// hairline around it.
class GlassItem : public QQuickPaintedItem {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(double radius MEMBER radius_ NOTIFY changed)
    /// Without rounded corners and side lines: only the upper edge is to be seen.
    Q_PROPERTY(bool isBand MEMBER isBand_ NOTIFY changed)
    Q_PROPERTY(bool isDark MEMBER isDark_ NOTIFY changed)
    /// More of the tint, less of what lies behind.
    Q_PROPERTY(bool isFrosted MEMBER isFrosted_ NOTIFY changed)
    Q_PROPERTY(bool isOpaque MEMBER isOpaque_ NOTIFY changed)
    Q_PROPERTY(bool hasStrongEdges MEMBER hasStrongEdges_ NOTIFY changed)
    /// What lies behind the whole window, frosted; null lets the tint stand alone.
    Q_PROPERTY(QImage backdrop MEMBER backdrop_ NOTIFY changed)
    /// The same as it is, for the corners and the shadow of a window that cannot be translucent.
    Q_PROPERTY(QImage surroundings MEMBER surroundings_ NOTIFY changed)
    /// Whether the corners are cut by the window's shape instead of being painted.
    Q_PROPERTY(bool fillsCorners MEMBER fillsCorners_ NOTIFY changed)
    /// Points that the item is larger than the pane at the sides and below, for its shadow.
    Q_PROPERTY(double margin MEMBER margin_ NOTIFY changed)

  public:
    explicit GlassItem(QQuickItem* parent = nullptr);
    void paint(QPainter* painter) override;

  protected:
    void geometryChange(const QRectF& newGeometry, const QRectF& oldGeometry) override;

  Q_SIGNALS:
    void changed();

  private:
    QRectF pane() const;
    QBrush brushOf(const QImage& picture) const;
    void paintShadow(QPainter& painter) const;
    void paintFill(QPainter& painter) const;
    void paintEdges(QPainter& painter) const;
    QColor tint() const;

    double radius_ = 0;
    bool isBand_ = false;
    bool isDark_ = false;
    bool isFrosted_ = false;
    bool isOpaque_ = false;
    bool hasStrongEdges_ = false;
    bool fillsCorners_ = false;
    double margin_ = 0;
    QImage backdrop_;
    QImage surroundings_;
};

} // namespace larkspan::ui
