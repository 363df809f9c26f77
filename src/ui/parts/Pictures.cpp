#include "ui/parts/Pictures.h"

#include <QFont>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

namespace larkspan::ui {

namespace {

constexpr int bytesPerPixel = 4;

/// One pass of a moving average over `count` pixels that lie `stride` bytes apart. The picture's
/// edge pixels go on beyond it.
void averageLine(const std::uint8_t* source, std::uint8_t* target, int count, std::ptrdiff_t stride,
                 int radius) {
    const int window = 2 * radius + 1;
    const auto at = [&](int i) { return source + std::clamp(i, 0, count - 1) * stride; };
    std::array<int, bytesPerPixel> sums{};
    for (int i = -radius; i <= radius; ++i)
        for (std::size_t channel = 0; channel < bytesPerPixel; ++channel)
            sums[channel] += at(i)[channel];
    for (int i = 0; i < count; ++i) {
        std::uint8_t* pixel = target + i * stride;
        const std::uint8_t* entering = at(i + radius + 1);
        const std::uint8_t* leaving = at(i - radius);
        for (std::size_t channel = 0; channel < bytesPerPixel; ++channel) {
            pixel[channel] = static_cast<std::uint8_t>(sums[channel] / window);
            sums[channel] += entering[channel] - leaving[channel];
        }
    }
}

/// Three moving averages in each direction come close to a Gaussian.
QImage blurred(QImage picture, int radius) {
    QImage other(picture.size(), picture.format());
    const auto stride = static_cast<std::ptrdiff_t>(picture.bytesPerLine());
    for (int pass = 0; pass < 3; ++pass) {
        const std::uint8_t* from = picture.constBits();
        std::uint8_t* to = other.bits();
        for (int y = 0; y < picture.height(); ++y)
            averageLine(from + y * stride, to + y * stride, picture.width(), bytesPerPixel, radius);
        from = other.constBits();
        to = picture.bits();
        for (int x = 0; x < picture.width(); ++x)
            averageLine(from + x * bytesPerPixel, to + x * bytesPerPixel, picture.height(), stride,
                        radius);
    }
    return picture;
}

QRgb livened(QRgb color) {
    const int gray = qGray(color);
    const auto channel = [gray](int value) {
        return std::clamp(gray + (value - gray) * 135 / 100, 0, 255);
    };
    return qRgb(channel(qRed(color)), channel(qGreen(color)), channel(qBlue(color)));
}

} // namespace

QImage pictureOf(const Bitmap& bitmap) {
    if (bitmap.isEmpty()) return {};
    QImage picture(bitmap.width, bitmap.height, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < bitmap.height; ++y)
        std::memcpy(picture.scanLine(y),
                    bitmap.pixels.data() + static_cast<std::ptrdiff_t>(y) * bitmap.width,
                    static_cast<std::size_t>(bitmap.width) * bytesPerPixel);
    return picture;
}

Bitmap bitmapOf(const QImage& picture) {
    const QImage source = picture.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Bitmap bitmap{source.width(), source.height(), {}};
    const auto width = static_cast<std::size_t>(source.width());
    bitmap.pixels.resize(width * static_cast<std::size_t>(source.height()));
    for (int y = 0; y < source.height(); ++y)
        std::memcpy(bitmap.pixels.data() + static_cast<std::size_t>(y) * width,
                    source.constScanLine(y), width * bytesPerPixel);
    return bitmap;
}

QImage letterPicture(const QString& name, int pixels) {
    QImage picture(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const double margin = pixels * 0.06;
    const QRectF tile = QRectF(picture.rect()).adjusted(margin, margin, -margin, -margin);
    const int hue = static_cast<int>(qHash(name) % 360);
    QLinearGradient fill(tile.topLeft(), tile.bottomLeft());
    fill.setColorAt(0, QColor::fromHsl(hue, 120, 165));
    fill.setColorAt(1, QColor::fromHsl(hue, 130, 115));
    painter.setPen(QPen(QColor(0, 0, 0, 50), 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(tile, tile.width() * 0.23, tile.width() * 0.23);
    QFont font;
    font.setPixelSize(std::max(6, static_cast<int>(pixels * 0.5)));
    font.setWeight(QFont::DemiBold);
    painter.setFont(font);
    painter.setPen(Qt::white);
    painter.drawText(tile, Qt::AlignCenter, name.left(1).toUpper());
    return picture;
}

QImage frosted(const QImage& picture, double radius) {
    if (picture.isNull()) return {};
    // A blur hides what a coarser picture lacks, and a quarter of the pixels cost a quarter.
    const int factor = radius >= 4 ? 2 : 1;
    const QSize coarse(std::max(1, picture.width() / factor),
                       std::max(1, picture.height() / factor));
    QImage result = picture.scaled(coarse, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                        .convertToFormat(QImage::Format_RGB32);
    result = blurred(std::move(result), std::max(1, static_cast<int>(radius / factor + 0.5)));
    for (int y = 0; y < result.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(result.scanLine(y));
        std::transform(line, line + result.width(), line, livened);
    }
    return result.scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

} // namespace larkspan::ui
