#include "adapters/x11/windows/HintIcon.h"

namespace larkspan::x11 {

namespace {

constexpr std::uint32_t pixmapHint = 1u << 2;
constexpr std::uint32_t maskHint = 1u << 5;
constexpr std::uint32_t pixmapField = 3;
constexpr std::uint32_t maskField = 7;
constexpr std::uint32_t hintFields = 9;
constexpr int largestPixmapSide = 1024;

/// The pixels of a pixmap as the X server sends them.
struct Pixels {
    int width = 0;
    int height = 0;
    int depth = 0;
    std::size_t stride = 0;
    bool isMostSignificantFirst = false;
    /// Nullptr when there are none.
    Reply<xcb_get_image_reply_t> image;

    bool contains(int x, int y) const { return x < width && y < height; }
    std::uint32_t at(int x, int y) const {
        const auto* line = xcb_get_image_data(image.get()) + static_cast<std::size_t>(y) * stride;
        if (depth == 1) {
            const int bit = isMostSignificantFirst ? 7 - x % 8 : x % 8;
            return line[x / 8] >> bit & 1u;
        }
        const auto* pixel = line + 4 * static_cast<std::size_t>(x);
        const int red = isMostSignificantFirst ? 1 : 2;
        const int blue = isMostSignificantFirst ? 3 : 0;
        const int green = isMostSignificantFirst ? 2 : 1;
        return std::uint32_t{pixel[red]} << 16 | std::uint32_t{pixel[green]} << 8 | pixel[blue];
    }
};

Pixels pixelsOf(X11Connection& connection, xcb_pixmap_t pixmap) {
    auto* raw = connection.raw();
    const auto geometry = connection.reply(xcb_get_geometry_reply, xcb_get_geometry(raw, pixmap));
    if (!geometry || geometry->width > largestPixmapSide || geometry->height > largestPixmapSide)
        return {};
    Pixels pixels{.width = geometry->width, .height = geometry->height, .depth = geometry->depth};
    if (pixels.depth != 1 && pixels.depth != 24 && pixels.depth != 32) return {};
    pixels.image = connection.reply(xcb_get_image_reply,
                                    xcb_get_image(raw, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, 0, 0,
                                                  geometry->width, geometry->height, ~0u));
    const auto* setup = xcb_get_setup(raw);
    pixels.isMostSignificantFirst =
        pixels.depth == 1 ? setup->bitmap_format_bit_order == XCB_IMAGE_ORDER_MSB_FIRST
                          : setup->image_byte_order == XCB_IMAGE_ORDER_MSB_FIRST;
    const std::size_t bits = static_cast<std::size_t>(pixels.width) * (pixels.depth == 1 ? 1 : 32);
    const std::size_t pad = setup->bitmap_format_scanline_pad;
    pixels.stride = (bits + pad - 1) / pad * pad / 8;
    if (!pixels.image || static_cast<std::size_t>(xcb_get_image_data_length(pixels.image.get())) <
                             pixels.stride * static_cast<std::size_t>(pixels.height))
        return {};
    return pixels;
}

std::uint32_t colourOf(const Pixels& icon, int x, int y) {
    constexpr std::uint32_t opaque = 0xFF000000;
    if (icon.depth == 1) return icon.at(x, y) ? opaque : 0xFFFFFFFF;
    return opaque | icon.at(x, y);
}

} // namespace

Bitmap hintIcon(X11Connection& connection, WindowId window) {
    const auto reply = connection.reply(
        xcb_get_property_reply, xcb_get_property(connection.raw(), 0, window, XCB_ATOM_WM_HINTS,
                                                 XCB_ATOM_WM_HINTS, 0, hintFields));
    if (!reply || reply->format != 32 || reply->value_len <= pixmapField) return {};
    const auto* hints = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const Pixels icon = hints[0] & pixmapHint ? pixelsOf(connection, hints[pixmapField]) : Pixels{};
    if (!icon.image) return {};
    const bool hasMask = (hints[0] & maskHint) && reply->value_len > maskField;
    const Pixels mask = hasMask ? pixelsOf(connection, hints[maskField]) : Pixels{};

    Bitmap bitmap{.width = icon.width, .height = icon.height};
    for (int y = 0; y < icon.height; ++y) {
        for (int x = 0; x < icon.width; ++x) {
            const bool isSeen = !mask.image || (mask.contains(x, y) && mask.at(x, y) != 0);
            bitmap.pixels.push_back(isSeen ? colourOf(icon, x, y) : 0);
        }
    }
    return bitmap;
}

} // namespace larkspan::x11
