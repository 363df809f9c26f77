#pragma once

#include "platform/Screens.h"
#include "platform/WindowServer.h"

#include <map>
#include <optional>
#include <vector>

namespace larkspan {

/// A window server that answers what was written down, so that entries can be malformed in ways
/// that no simulated desktop makes them.
class RecordedWindowServer final : public WindowServer {
  public:
    std::optional<std::vector<WindowListEntry>> list = std::vector<WindowListEntry>{};
    std::optional<std::vector<ManagedDisplay>> displays;
    std::map<SpaceId, std::vector<WindowId>> windows;

    WindowServerAbilities abilities() const override { return {}; }
    std::optional<std::vector<WindowListEntry>> windowList(std::uint32_t) const override {
        return list;
    }
    std::optional<std::vector<WindowId>> windowNumbers(std::uint32_t) const override {
        return std::nullopt;
    }
    std::optional<std::vector<ManagedDisplay>> managedDisplaySpaces() const override {
        return displays;
    }
    std::optional<std::vector<WindowId>> windowsOfSpace(SpaceId space) const override {
        const auto found = windows.find(space);
        if (found == windows.end()) return std::nullopt;
        return found->second;
    }
    bool moveWindows(const std::vector<WindowId>&, SpaceId) override { return false; }
    Handle subscribe(std::function<void()>) override { return {}; }
};

inline Screen screenAt(DisplayId display, const std::string& identifier, const Rect& bounds) {
    return {.display = display,
            .displayIdentifier = identifier,
            .frame = {bounds.x, -bounds.maxY(), bounds.width, bounds.height},
            .visibleFrame = {},
            .bounds = bounds};
}

} // namespace larkspan
