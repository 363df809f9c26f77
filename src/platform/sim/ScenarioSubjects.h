#pragma once

#include "platform/sim/Stage.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>

namespace larkspan::sim {

// Finding what a step of a scenario names.

/// Why it could not be done; absent when it is done.
using Outcome = std::optional<std::string>;
inline constexpr Outcome done = std::nullopt;

inline std::string text(const nlohmann::json& fields, const char* name) {
    return fields.value(name, std::string());
}

/// Does something with the running app that "app" names.
template <typename Act>
Outcome withApp(Stage& stage, const nlohmann::json& fields, Act act) {
    const std::string app = text(fields, "app");
    const ProcessId pid = stage.mac.pidOf(app);
    if (pid == 0) return fmt::format("no app {} runs", app);
    act(stage.mac, pid);
    return done;
}

/// Does something with the frontmost window of the title that "window" names.
template <typename Act>
Outcome withWindow(Stage& stage, const nlohmann::json& fields, Act act) {
    const std::string title = text(fields, "window");
    for (const Window& window : stage.mac.world().windows) {
        if (window.title != title) continue;
        act(stage.mac, WindowId{window.id});
        return done;
    }
    return fmt::format("there is no window \"{}\"", title);
}

/// Does something with the display whose place in the row "display" names, the main one by default.
template <typename Act>
Outcome withDisplay(Stage& stage, const nlohmann::json& fields, Act act) {
    const auto index = fields.value("display", std::size_t{0});
    const DisplayId display = stage.mac.displayAt(index);
    if (display == 0) return fmt::format("there is no display {}", index);
    return act(stage.mac, display);
}

} // namespace larkspan::sim
