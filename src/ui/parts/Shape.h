#pragma once

#include <QRectF>
#include <QRegion>

namespace larkspan::ui {

/// The pixels of a rectangle with rounded corners, for windows whose corners cannot be see-through.
QRegion roundedRegion(const QRectF& rect, double radius);

} // namespace larkspan::ui
