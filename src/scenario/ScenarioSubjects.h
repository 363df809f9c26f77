#pragma once

#include "platform/numberFromText.h"
#include "scenario/Stage.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>

namespace larkspan::sim {

// Finds what a step of a scenario names.

/// Why it could not be done; absent if it was.
using Outcome = std::optional<std::string>;
inline constexpr Outcome done = std::nullopt;

inline std::string text(const nlohmann::json& fields, const char* name) {
    return fields.value(name, std::string());
}

/// The process named by "IDENTIFIER" or, for a second process of the app, "IDENTIFIER#2"; 0 if
/// there is none.
inline ProcessId processNamed(const SimMac& mac, std::string_view name) {
    const auto mark = name.rfind('#');
    const auto number = mark == std::string_view::npos ? 1 : numberFromText(name.substr(mark + 1));
    double count = 0;
    for (const App& app : mac.world().apps) {
        if (app.bundleIdentifier == name.substr(0, mark) && ++count == number) return app.pid;
    }
    return 0;
}

/// Calls `act` with the running app that "app" names.
template <typename Act>
Outcome withApp(Stage& stage, const nlohmann::json& fields, Act act) {
    const std::string app = text(fields, "app");
    const ProcessId pid = processNamed(stage.mac, app);
    if (pid == 0) return fmt::format("{} is not running", app);
    act(stage.mac, pid);
    return done;
}

/// Calls `act` with the installed app that "app" names.
template <typename Act>
Outcome withInstalled(Stage& stage, const nlohmann::json& fields, Act act) {
    const auto& installed = stage.mac.world().installed;
    const auto found = installed.find(text(fields, "app"));
    if (found == installed.end()) return fmt::format("{} is not installed", text(fields, "app"));
    return act(stage.mac, found->second);
}

/// Calls `act` with the frontmost window that has the title in "window".
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

/// A fault that `false` undoes.
template <void (SimMac::*method)(bool)>
Outcome onFlag(Stage& stage, const nlohmann::json& fields) {
    (stage.mac.*method)(fields.value("refuse", true));
    return done;
}

template <void (SimMac::*method)()>
Outcome onMac(Stage& stage, const nlohmann::json&) {
    (stage.mac.*method)();
    return done;
}

/// Calls `act` with the display whose index is in "display", by default the main one.
template <typename Act>
Outcome withDisplay(Stage& stage, const nlohmann::json& fields, Act act) {
    const auto index = fields.value("display", std::size_t{0});
    const DisplayId display = stage.mac.displayAt(index);
    if (display == 0) return fmt::format("there is no display {}", index);
    return act(stage.mac, display);
}

} // namespace larkspan::sim
