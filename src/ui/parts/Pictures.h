#pragma once

#include "platform/Image.h"

#include <QImage>
#include <QString>

namespace larkspan::ui {

QImage pictureOf(const Bitmap& bitmap);
Bitmap bitmapOf(const QImage& picture);

/// Stands in for an icon that cannot be loaded: the name's first letter on a colour of its own.
QImage letterPicture(const QString& name, int pixels);

/// The picture as it looks through frosted glass: blurred by a radius in pixels, its colours
/// livened a little.
QImage frosted(const QImage& picture, double radius);

} // namespace larkspan::ui
