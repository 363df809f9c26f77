#include "adapters/qt/fitted.h"

#include <cstring>

namespace larkspan::qt {

namespace {

constexpr auto format = QImage::Format_ARGB32_Premultiplied;

/// Copies the image's rows into the middle of the square.
void paste(const QImage& picture, Bitmap& square) {
    const int left = (square.width - picture.width()) / 2;
    const int top = (square.height - picture.height()) / 2;
    for (int row = 0; row < picture.height(); ++row) {
        const auto start =
            static_cast<std::size_t>(top + row) * static_cast<std::size_t>(square.width) +
            static_cast<std::size_t>(left);
        std::memcpy(&square.pixels[start], picture.constScanLine(row),
                    static_cast<std::size_t>(picture.width()) * sizeof(std::uint32_t));
    }
}

} // namespace

Bitmap fitted(const QImage& picture, int pixels) {
    if (picture.isNull() || pixels <= 0) return {};
    const QSize size =
        picture.size().scaled(pixels, pixels, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    QImage scaled = picture.convertToFormat(format);
    if (scaled.size() != size)
        scaled = scaled.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                     .convertToFormat(format);
    if (scaled.isNull()) return {};
    Bitmap square{pixels, pixels, {}};
    square.pixels.resize(static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels));
    paste(scaled, square);
    return square;
}

QImage view(const Bitmap& bitmap) {
    const auto stride = static_cast<qsizetype>(bitmap.width) * 4;
    const auto* bytes = reinterpret_cast<const uchar*>(bitmap.pixels.data());
    return {bytes, bitmap.width, bitmap.height, stride, format};
}

} // namespace larkspan::qt
