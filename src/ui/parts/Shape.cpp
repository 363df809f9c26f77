#include "ui/parts/Shape.h"

#include <QPainterPath>
#include <QPolygon>

namespace larkspan::ui {

QRegion roundedRegion(const QRectF& rect, double radius) {
    QPainterPath outline;
    outline.addRoundedRect(rect, radius, radius);
    return QRegion(outline.toFillPolygon().toPolygon());
}

} // namespace larkspan::ui
