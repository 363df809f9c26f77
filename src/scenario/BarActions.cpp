#include "bar/TileName.h"
#include "control/Control.h"
#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioSubjects.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace larkspan::sim {

namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

constexpr const char* notRunning = "Larkspan is not running";

/// Goes the road of the command line. An answer that takes its time is not waited for: what came of
/// it is for an expectation.
Outcome request(Stage& stage, const Words& words) {
    if (!stage.delegate()) return notRunning;
    const auto outcome = std::make_shared<Outcome>(done);
    Control(*stage.delegate()).answer(words, [outcome](const ControlAnswer& answer) {
        if (answer.code != ExitCode::succeeded) *outcome = answer.text;
    });
    return *outcome;
}

Outcome tell(Stage& stage, const json& fields) {
    return request(stage, fields["words"].get<Words>());
}

/// A bar that can be seen, with a tile of it.
struct ShownTile {
    BarInteraction& bar;
    int tile;
};

/// Does something with the tile that "app", "display" and "space" name, as a person does: on a bar
/// that can be seen.
template <typename Act>
Outcome withTile(Stage& stage, const json& fields, Act act) {
    if (!stage.delegate()) return notRunning;
    TileName name{.id = text(fields, "app")};
    // A further process of an app has a tile of its own.
    const ProcessId pid = processNamed(stage.mac, name.id);
    if (pid != 0 && name.id.find('#') != std::string::npos) name.id = fmt::format("pid:{}", pid);
    const DisplayId display = stage.mac.displayAt(fields.value("display", std::size_t{0}));
    if (fields.contains("display")) name.display = display;
    if (fields.contains("space"))
        name.space = stage.mac.spaceAt(display, fields["space"].get<std::size_t>());
    const auto* bars = stage.delegate()->controller().bars();
    const auto found = bars ? findTile(bars->bars(), name) : std::nullopt;
    if (!found) return fmt::format("no bar has a tile {}{}", name.id,
                           name.display || name.space ? " in that group" : "");
    if (!found->bar->isShown()) return fmt::format("the bar with {} is not shown", name.id);
    return act(ShownTile{*found->bar, found->tile});
}

Outcome click(Stage& stage, const json& fields) {
    return withTile(stage, fields, [](const ShownTile& at) {
        at.bar.click(at.tile);
        return done;
    });
}

Outcome set(Stage& stage, const json& fields) {
    const json& value = fields["value"];
    return request(stage, {"set", fields["key"].get<std::string>(),
                           value.is_string() ? value.get<std::string>() : value.dump()});
}

Outcome mode(Stage& stage, const json& fields) {
    return request(stage, {"mode", fields["mode"].get<std::string>()});
}

Outcome chooseLine(Stage& stage, const std::string& title) {
    BarOverlay* overlay = stage.delegate()->controller().overlay();
    if (!overlay || !overlay->isMenuOpen()) return "no menu is open";
    if (overlay->chooseLine(title)) return done;
    return fmt::format("the menu has no \"{}\" that can be chosen", title);
}

Outcome menu(Stage& stage, const json& fields) {
    return withTile(stage, fields, [&](const ShownTile& at) -> Outcome {
        at.bar.openTileMenu(at.tile);
        // Until the app has answered.
        stage.mac.scheduler.runUntilIdle();
        return fields.contains("choose") ? chooseLine(stage, text(fields, "choose")) : done;
    });
}

Outcome closeMenu(Stage& stage, const json&) {
    if (!stage.delegate()) return notRunning;
    BarOverlay* overlay = stage.delegate()->controller().overlay();
    if (!overlay || !overlay->isMenuOpen()) return "no menu is open";
    overlay->closeMenu();
    return done;
}

Outcome status(Stage& stage, const json& fields) {
    const auto title = fields["choose"].get<std::string>();
    if (stage.mac.statusBar.choose(title)) return done;
    return fmt::format("no menu in the status bar has \"{}\"", title);
}

Point middleOf(const Rect& frame) {
    return {frame.x + frame.width / 2, frame.y + frame.height / 2};
}

Outcome leaveBars(Stage& stage) {
    for (const auto& bar : stage.delegate()->controller().bars()->bars()) {
        bar.interaction->hover(*bar.interaction->litTile, false);
        bar.interaction->setPointerInside(false);
        stage.mac.movePointer(middleOf(bar.screen.frame));
    }
    return done;
}

Outcome pointer(Stage& stage, const json& fields) {
    if (fields.contains("app"))
        return withTile(stage, fields, [&](const ShownTile& at) {
            stage.mac.movePointer(middleOf(at.bar.frameOfTile(at.tile)));
            at.bar.setPointerInside(true);
            at.bar.hover(at.tile, true);
            return done;
        });
    if (!stage.delegate()) return notRunning;
    const auto* bars = stage.delegate()->controller().bars();
    const auto isShown = [](const BarController::Bar& bar) { return bar.isShown; };
    if (!bars || std::ranges::none_of(bars->bars(), isShown)) return "no bar is shown";
    if (!fields.value("onBar", true)) return leaveBars(stage);
    const auto bar = std::ranges::find_if(bars->bars(), isShown);
    stage.mac.movePointer(middleOf(bar->interaction->frame()));
    bar->interaction->setPointerInside(true);
    return done;
}

Outcome start(Stage& stage, const json&) {
    stage.start();
    return done;
}

Outcome quitLarkspan(Stage& stage, const json&) {
    if (!stage.delegate()) return notRunning;
    stage.quit();
    return done;
}

Outcome killLarkspan(Stage& stage, const json& fields) {
    if (!stage.delegate()) return notRunning;
    stage.kill(fields.value("stored", std::size_t{0}));
    return done;
}

} // namespace

const std::vector<ScenarioAction>& barActions() {
    constexpr Field app{"app", FieldKind::text, true};
    constexpr Field display{"display", FieldKind::index};
    constexpr Field space{"space", FieldKind::index};
    constexpr Field line{"choose", FieldKind::text};
    constexpr Field choose{"choose", FieldKind::text, true};
    static const std::vector<ScenarioAction> actions{
        {"click", {app, display, space}, click},
        {"menu", {app, line, display, space}, menu},
        {"closeMenu", {}, closeMenu},
        {"status", {choose}, status},
        {"pointer",
         {{"onBar", FieldKind::flag}, {"app", FieldKind::text}, display, space},
         pointer},
        {"set", {{"key", FieldKind::text, true}, {"value", FieldKind::anything, true}}, set},
        {"mode", {{"mode", FieldKind::text, true}}, mode},
        {"tell", {{"words", FieldKind::texts, true}}, tell},
        {"startLarkspan", {}, start},
        {"quitLarkspan", {}, quitLarkspan},
        {"killLarkspan", {{"stored", FieldKind::index}}, killLarkspan},
    };
    return actions;
}

} // namespace larkspan::sim
