#include "adapters/x11/panels/X11DesktopPicture.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <xcb/xfixes.h>

namespace larkspan::x11 {

namespace {

constexpr std::uint32_t opaque = 0xFF000000;

int wrapped(int value, int length) {
    return ((value % length) + length) % length;
}

} // namespace

X11DesktopPicture::X11DesktopPicture(X11Connection& connection, double scale)
    : connection_(connection)
    , scale_(scale)
    , eventSubscription_(
          connection.events.subscribe([this](const xcb_generic_event_t& event) { handle(event); }))
    , settledSubscription_(connection.settled.subscribe([this] { settle(); })) {
    watchCompositor();
    readCompositor();
}

void X11DesktopPicture::watchCompositor() {
    auto* raw = connection_.raw();
    const auto* extension = xcb_get_extension_data(raw, &xcb_xfixes_id);
    if (!extension || !extension->present) return;
    // The extension requires the version to be negotiated first.
    const auto version =
        connection_.reply(xcb_xfixes_query_version_reply, xcb_xfixes_query_version(raw, 2, 0));
    if (!version) return;
    firstFixesEvent_ = extension->first_event;
    xcb_xfixes_select_selection_input(raw, connection_.root(), connection_.atoms().compositor,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                          XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

void X11DesktopPicture::readCompositor() {
    const auto owner = connection_.reply(
        xcb_get_selection_owner_reply,
        xcb_get_selection_owner(connection_.raw(), connection_.atoms().compositor));
    const bool isComposited = owner && owner->owner != XCB_NONE;
    if (std::exchange(isComposited_, isComposited) != isComposited) hasChanged_ = true;
}

void X11DesktopPicture::handle(const xcb_generic_event_t& event) {
    const int type = event.response_type & 0x7f;
    if (firstFixesEvent_ != 0 && type == firstFixesEvent_ + XCB_XFIXES_SELECTION_NOTIFY)
        isCompositorStale_ = true;
    if (type != XCB_PROPERTY_NOTIFY) return;
    const auto& property = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    const auto& atoms = connection_.atoms();
    if (property.window == connection_.root() &&
        (property.atom == atoms.rootPixmap || property.atom == atoms.esetrootPixmap))
        hasChanged_ = true;
}

void X11DesktopPicture::settle() {
    if (std::exchange(isCompositorStale_, false) && connection_.isAlive()) readCompositor();
    if (std::exchange(hasChanged_, false)) changed_.emit();
}

xcb_pixmap_t X11DesktopPicture::pixmap() const {
    for (const auto name : {connection_.atoms().rootPixmap, connection_.atoms().esetrootPixmap}) {
        const auto reply = connection_.reply(
            xcb_get_property_reply, xcb_get_property(connection_.raw(), 0, connection_.root(), name,
                                                     XCB_ATOM_PIXMAP, 0, 1));
        if (reply && reply->format == 32 && reply->value_len == 1)
            return *static_cast<const xcb_pixmap_t*>(xcb_get_property_value(reply.get()));
    }
    return XCB_NONE;
}

// A wallpaper smaller than the root window is tiled from its top left.
std::optional<Bitmap> X11DesktopPicture::under(const Rect& rect) const {
    const auto source = pixmap();
    if (source == XCB_NONE || rect.isEmpty()) return std::nullopt;
    const auto geometry =
        connection_.reply(xcb_get_geometry_reply, xcb_get_geometry(connection_.raw(), source));
    if (!geometry || geometry->width == 0 || geometry->height == 0) return std::nullopt;

    const Area wanted{int(std::floor(rect.x * scale_)), int(std::floor(rect.y * scale_)),
                      int(std::ceil(rect.width * scale_)), int(std::ceil(rect.height * scale_))};
    const bool isInside = wanted.x >= 0 && wanted.y >= 0 &&
                          wanted.x + wanted.width <= geometry->width &&
                          wanted.y + wanted.height <= geometry->height;
    if (isInside) return read(source, wanted);

    const auto whole = read(source, {0, 0, geometry->width, geometry->height});
    if (!whole) return std::nullopt;
    Bitmap bitmap{.width = wanted.width, .height = wanted.height};
    bitmap.pixels.reserve(std::size_t(wanted.width) * std::size_t(wanted.height));
    for (int y = wanted.y; y < wanted.y + wanted.height; ++y)
        for (int x = wanted.x; x < wanted.x + wanted.width; ++x)
            bitmap.pixels.push_back(
                whole->pixels[std::size_t(wrapped(y, whole->height)) * std::size_t(whole->width) +
                              std::size_t(wrapped(x, whole->width))]);
    return bitmap;
}

// Supports images of 24 or 32 bits in this machine's byte order, as all current desktops have;
// absent for others.
std::optional<Bitmap> X11DesktopPicture::read(xcb_pixmap_t pixmap, const Area& area) const {
    const auto image = connection_.reply(
        xcb_get_image_reply,
        xcb_get_image(connection_.raw(), XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap,
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y),
                      static_cast<std::uint16_t>(area.width),
                      static_cast<std::uint16_t>(area.height), UINT32_MAX));
    const auto count = std::size_t(area.width) * std::size_t(area.height);
    const bool isReadable =
        image && image->depth >= 24 &&
        xcb_get_setup(connection_.raw())->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST &&
        std::size_t(xcb_get_image_data_length(image.get())) >= count * sizeof(std::uint32_t);
    if (!isReadable) return std::nullopt;
    Bitmap bitmap{.width = area.width, .height = area.height};
    bitmap.pixels.resize(count);
    std::memcpy(bitmap.pixels.data(), xcb_get_image_data(image.get()),
                count * sizeof(std::uint32_t));
    for (auto& pixel : bitmap.pixels)
        pixel |= opaque;
    return bitmap;
}

} // namespace larkspan::x11
