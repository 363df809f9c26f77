#pragma once

#include "adapters/mac/decode/ValueView.h"
#include "platform/WindowServer.h"

namespace larkspan::mac {

/// A rectangle in the platform's dictionary format; absent unless it has all four numbers and they
/// are finite.
template <ValueView View>
std::optional<Rect> rectOf(const View& view) {
    const auto x = numberOf(view["X"]);
    const auto y = numberOf(view["Y"]);
    const auto width = numberOf(view["Width"]);
    const auto height = numberOf(view["Height"]);
    if (!x || !y || !width || !height) return std::nullopt;
    return Rect{*x, *y, *width, *height};
}

template <ValueView View>
WindowListEntry windowListEntry(const View& view) {
    return {
        .layer = integerOf<int>(view["kCGWindowLayer"]),
        .ownerPID = integerOf<ProcessId>(view["kCGWindowOwnerPID"]),
        .alpha = numberOf(view["kCGWindowAlpha"]),
        .bounds = rectOf(view["kCGWindowBounds"]),
        .number = unsignedOf<WindowId>(view["kCGWindowNumber"]),
        .isOnScreen = flagOf(view["kCGWindowIsOnscreen"]),
        .name = view["kCGWindowName"].string(),
    };
}

/// The window list in order; a malformed entry is kept, but empty. Absent if this is not a list.
template <ValueView View>
std::optional<std::vector<WindowListEntry>> windowList(const View& view) {
    const auto entries = view.array();
    if (!entries) return std::nullopt;
    std::vector<WindowListEntry> list;
    list.reserve(entries->size());
    for (const auto& entry : *entries)
        list.push_back(windowListEntry(entry));
    return list;
}

/// Window numbers; what is not a number is skipped. Absent if this is not a list.
template <ValueView View>
std::optional<std::vector<WindowId>> windowNumbers(const View& view) {
    const auto entries = view.array();
    if (!entries) return std::nullopt;
    std::vector<WindowId> numbers;
    numbers.reserve(entries->size());
    for (const auto& entry : *entries)
        if (const auto number = unsignedOf<WindowId>(entry)) numbers.push_back(*number);
    return numbers;
}

} // namespace larkspan::mac
