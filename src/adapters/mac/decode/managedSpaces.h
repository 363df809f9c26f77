#pragma once

#include "adapters/mac/decode/ValueView.h"
#include "platform/WindowServer.h"

namespace larkspan::mac {

template <ValueView View>
ManagedSpace managedSpace(const View& view) {
    return {
        .id64 = unsignedOf<SpaceId>(view["id64"]),
        .type = integerOf<int>(view["type"]),
        .uuid = view["uuid"].string(),
    };
}

template <ValueView View>
ManagedDisplay managedDisplay(const View& view) {
    ManagedDisplay display;
    display.displayIdentifier = view["Display Identifier"].string();
    const auto current = view["Current Space"];
    if (current.dictionary()) display.currentSpace = managedSpace(current);
    if (const auto spaces = view["Spaces"].array())
        for (const auto& space : *spaces)
            display.spaces.push_back(managedSpace(space));
    return display;
}

/// The displays with their Spaces, in the window server's order; a malformed one is kept, but
/// empty. Absent if this is not a list.
template <ValueView View>
std::optional<std::vector<ManagedDisplay>> managedDisplays(const View& view) {
    const auto entries = view.array();
    if (!entries) return std::nullopt;
    std::vector<ManagedDisplay> displays;
    for (const auto& entry : *entries)
        displays.push_back(managedDisplay(entry));
    return displays;
}

} // namespace larkspan::mac
