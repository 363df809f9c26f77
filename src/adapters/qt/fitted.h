#pragma once

#include "platform/Image.h"

#include <QImage>

namespace larkspan::qt {

/// The picture in the middle of a square of `pixels` × `pixels`, as large as its proportions allow;
/// empty when there is no picture.
Bitmap fitted(const QImage& picture, int pixels);

/// The same pixels as a picture of Qt's, which must not outlive the bitmap.
QImage view(const Bitmap& bitmap);

} // namespace larkspan::qt
