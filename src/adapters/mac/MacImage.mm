#include "adapters/mac/MacImage.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace larkspan::mac {

namespace {

template <auto release>
struct Release {
    template <typename T>
    void operator()(T* object) const {
        release(object);
    }
};
using ColorSpace = std::unique_ptr<CGColorSpace, Release<CGColorSpaceRelease>>;
using BitmapContext = std::unique_ptr<CGContext, Release<CGContextRelease>>;

/// Draws directly into the bitmap's pixels.
BitmapContext contextOver(Bitmap& bitmap) {
    const ColorSpace colors(CGColorSpaceCreateWithName(kCGColorSpaceSRGB));
    const auto side = static_cast<std::size_t>(bitmap.width);
    // 0xAARRGGBB in this machine's byte order.
    const auto layout = static_cast<CGBitmapInfo>(kCGImageAlphaPremultipliedFirst) |
                        static_cast<CGBitmapInfo>(kCGBitmapByteOrder32Host);
    return BitmapContext(CGBitmapContextCreate(bitmap.pixels.data(), side, side, 8,
                                               side * sizeof(std::uint32_t), colors.get(), layout));
}

/// As large as fits into the square, centred.
NSRect fittedRect(NSSize size, double side) {
    const double factor = side / std::max(size.width, size.height);
    const NSSize fitted{size.width * factor, size.height * factor};
    return {{(side - fitted.width) / 2, (side - fitted.height) / 2}, fitted};
}

} // namespace

MacImage::MacImage(std::string identity, NSImage* picture)
    : identity_(std::move(identity))
    , picture_(picture) {}

Bitmap MacImage::bitmap(int pixels) const {
    const NSSize size = picture_.size;
    if (pixels <= 0 || size.width <= 0 || size.height <= 0) return {};
    Bitmap bitmap{pixels, pixels, {}};
    bitmap.pixels.resize(static_cast<std::size_t>(pixels) * static_cast<std::size_t>(pixels));
    const auto context = contextOver(bitmap);
    if (!context) return {};
    // May be called on any thread, and most have no autorelease pool.
    @autoreleasepool {
        [NSGraphicsContext saveGraphicsState];
        NSGraphicsContext.currentContext =
            [NSGraphicsContext graphicsContextWithCGContext:context.get() flipped:NO];
        NSGraphicsContext.currentContext.imageInterpolation = NSImageInterpolationHigh;
        [picture_ drawInRect:fittedRect(size, pixels)
                    fromRect:NSZeroRect
                   operation:NSCompositingOperationCopy
                    fraction:1
              respectFlipped:NO
                       hints:nil];
        [NSGraphicsContext restoreGraphicsState];
    }
    return bitmap;
}

} // namespace larkspan::mac
