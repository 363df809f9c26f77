#pragma once

#include "platform/Image.h"

#include <QImage>

namespace larkspan::qt {

/// The image in the middle of a square of `pixels` × `pixels`, as large as its proportions allow;
/// empty if there is no image.
Bitmap fitted(const QImage& picture, int pixels);

/// The same pixels as a QImage, which must not outlive the bitmap.
QImage view(const Bitmap& bitmap);

} // namespace larkspan::qt
