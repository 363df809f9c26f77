#include "adapters/x11/windows/WindowIcon.h"

#include "adapters/qt/BitmapImage.h"
#include "adapters/x11/windows/HintIcon.h"

#include <fmt/format.h>

#include <span>
#include <vector>

namespace larkspan::x11 {

namespace {

// Several images of up to 1024 × 1024 pixels, in 32-bit units.
constexpr std::uint32_t longestIcon = 4u << 20;
constexpr std::uint32_t largestSide = 1024;

struct OfferedIcon {
    int width = 0;
    int height = 0;
    std::span<const std::uint32_t> pixels;

    int side() const { return std::max(width, height); }
};

// A sequence of images, each with width, height and that many pixels; an incomplete one ends the
// list.
std::vector<OfferedIcon> offeredIcons(std::span<const std::uint32_t> numbers) {
    std::vector<OfferedIcon> offered;
    while (numbers.size() > 2) {
        const auto width = numbers[0];
        const auto height = numbers[1];
        if (width == 0 || height == 0 || width > largestSide || height > largestSide) break;
        const std::size_t count = std::size_t{width} * height;
        if (numbers.size() - 2 < count) break;
        offered.push_back({int(width), int(height), numbers.subspan(2, count)});
        numbers = numbers.subspan(2 + count);
    }
    return offered;
}

const OfferedIcon* bestFor(int pixels, const std::vector<OfferedIcon>& offered) {
    const OfferedIcon* best = nullptr;
    for (const auto& icon : offered) {
        const bool isLargeEnough = icon.side() >= pixels;
        const bool isBestLargeEnough = best && best->side() >= pixels;
        if (!best || (isLargeEnough && (!isBestLargeEnough || icon.side() < best->side())) ||
            (!isLargeEnough && !isBestLargeEnough && icon.side() > best->side()))
            best = &icon;
    }
    return best;
}

std::uint32_t premultiplied(std::uint32_t colour) {
    const auto alpha = colour >> 24;
    const auto part = [&](int shift) {
        return (((colour >> shift & 0xFF) * alpha + 127) / 255) << shift;
    };
    return alpha << 24 | part(16) | part(8) | part(0);
}

} // namespace

WindowIcon::WindowIcon(X11Connection& connection, WindowId window)
    : connection_(connection)
    , window_(window)
    , identity_(fmt::format("window:{}", window)) {}

Bitmap WindowIcon::bitmap(int pixels) const {
    const std::lock_guard lock(mutex_);
    if (pixels > keptFor_) {
        auto larger = read(pixels);
        if (!larger.isEmpty()) kept_ = std::move(larger);
        keptFor_ = pixels;
    }
    return kept_.isEmpty() ? Bitmap{} : qt::BitmapImage(identity_, {kept_}).bitmap(pixels);
}

Bitmap WindowIcon::read(int pixels) const {
    const auto reply = connection_.reply(xcb_get_property_reply,
                                         xcb_get_property(connection_.raw(), 0, window_,
                                                          connection_.atoms().netWmIcon,
                                                          XCB_ATOM_CARDINAL, 0, longestIcon));
    if (!reply || reply->format != 32) return hintIcon(connection_, window_);
    const auto offered = offeredIcons(
        {static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get())), reply->value_len});
    const auto* best = bestFor(pixels, offered);
    if (!best) return hintIcon(connection_, window_);
    Bitmap bitmap{.width = best->width, .height = best->height};
    bitmap.pixels.reserve(best->pixels.size());
    for (const auto colour : best->pixels)
        bitmap.pixels.push_back(premultiplied(colour));
    return bitmap;
}

} // namespace larkspan::x11
