#include "scenario/ScenarioAction.h"
#include "scenario/ScenarioSubjects.h"

namespace larkspan::sim {

namespace {

using nlohmann::json;

template <bool refuse>
Outcome permit(Stage& stage, const json& fields) {
    const std::string permission = text(fields, "permission");
    if (permission == "accessibility")
        stage.mac.refuseAccessibility(refuse);
    else if (permission == "screenRecording")
        stage.mac.refuseScreenRecording(refuse);
    else if (permission == "inputMonitoring")
        stage.mac.eventTaps.refuses = refuse;
    else
        return fmt::format("unknown permission \"{}\"", permission);
    return done;
}

template <bool hung>
Outcome hang(Stage& stage, const json& fields) {
    return withApp(stage, fields, [](SimMac& mac, ProcessId pid) { mac.hang(pid, hung); });
}

Outcome refuseToQuit(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.world().app(pid)->refusesToQuit = fields.value("refuse", true);
    });
}

Outcome leaveWindows(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.world().app(pid)->leavesWindows = fields.value("leave", true);
    });
}

Outcome answerAfter(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.answerAfter(pid, fields["seconds"].get<double>());
    });
}

Outcome lieAboutFrames(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.lieAboutFrames(pid, {fields["x"].get<double>(), fields["y"].get<double>()});
    });
}

Outcome dieDuringRead(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.dieDuringRead(pid, fields["calls"].get<int>());
    });
}

Outcome openWindows(Stage& stage, const json& fields) {
    return withApp(stage, fields, [&](SimMac& mac, ProcessId pid) {
        mac.openWindows(pid, fields["count"].get<std::size_t>());
    });
}

Outcome removeFunction(Stage& stage, const json& fields) {
    const std::string name = text(fields, "name");
    if (stage.mac.removeFunction(name)) return done;
    return fmt::format("unknown private function \"{}\"", name);
}

Outcome disturbEvents(Stage& stage, const json& fields) {
    stage.mac.loseEvents(fields.value("lost", false));
    stage.mac.doubleEvents(fields.value("doubled", false));
    stage.mac.delayEvents(fields.value("late", 0.0));
    return done;
}

Outcome disableTaps(Stage& stage, const json&) {
    stage.mac.eventTaps.disable(TapEvent::disabledByTimeout);
    return done;
}

Outcome disturbWindowList(Stage& stage, const json& fields) {
    World& world = stage.mac.world();
    world.windowListAnswers = !fields.value("silent", false);
    world.windowListSeconds = fields.value("seconds", 0.0);
    return done;
}

Outcome reportFrontLate(Stage& stage, const json& fields) {
    stage.mac.world().frontReportSeconds = fields["seconds"].get<double>();
    return done;
}

Outcome dieBefore(Stage& stage, const json& fields) {
    if (!stage.delegate()) return "Larkspan is not running";
    stage.mac.killPoint().dieBefore(fields["write"].get<int>());
    return done;
}

Outcome changeDisplaysAfterRead(Stage& stage, const json& fields) {
    const std::string displays = text(fields, "displays");
    if (stage.mac.changeDisplaysAfterRead(displays)) return done;
    return fmt::format("\"{}\" is not a list of displays", displays);
}

} // namespace

const std::vector<ScenarioAction>& faultActions() {
    constexpr Field app{"app", FieldKind::text, true};
    constexpr Field refuse{"refuse", FieldKind::flag};
    static const std::vector<ScenarioAction> actions{
        {"refuse", {{"permission", FieldKind::text, true}}, permit<true>},
        {"grant", {{"permission", FieldKind::text, true}}, permit<false>},
        {"freezeScreenRecording", {}, onMac<&SimMac::freezeScreenRecording>},
        {"hang", {app}, hang<true>},
        {"release", {app}, hang<false>},
        {"refuseToQuit", {app, refuse}, refuseToQuit},
        {"leaveWindows", {app, {"leave", FieldKind::flag}}, leaveWindows},
        {"answerAfter", {app, secondsField("seconds", true)}, answerAfter},
        {"lieAboutFrames",
         {app, {"x", FieldKind::number, true}, {"y", FieldKind::number, true}},
         lieAboutFrames},
        {"dieDuringRead", {app, {"calls", FieldKind::index, true, 0, 10'000}}, dieDuringRead},
        {"openWindows", {app, {"count", FieldKind::index, true, 1, 10'000}}, openWindows},
        {"removeFunction", {{"name", FieldKind::text, true}}, removeFunction},
        {"removeAllFunctions", {}, onMac<&SimMac::removeAllFunctions>},
        {"restoreFunctions", {}, onMac<&SimMac::restoreFunctions>},
        {"disturbWindowList",
         {{"silent", FieldKind::flag}, secondsField("seconds")},
         disturbWindowList},
        {"refuseMoves", {refuse}, onFlag<&SimMac::refuseMoves>},
        {"reportFrontLate", {secondsField("seconds", true)}, reportFrontLate},
        {"disturbEvents",
         {{"lost", FieldKind::flag}, {"doubled", FieldKind::flag}, secondsField("late")},
         disturbEvents},
        {"disableTaps", {}, disableTaps},
        {"removeDock", {}, onMac<&SimMac::removeDock>},
        {"startDock", {}, onMac<&SimMac::startDock>},
        {"refuseDockSizes", {refuse}, onFlag<&SimMac::refuseDockSizes>},
        {"refuseLoginItem", {refuse}, onFlag<&SimMac::refuseLoginItem>},
        {"refuseToStore", {refuse}, onFlag<&SimMac::refuseToStore>},
        {"dieBefore", {{"write", FieldKind::index, true, 0, 10'000}}, dieBefore},
        {"changeDisplaysAfterRead", {{"displays", FieldKind::text, true}}, changeDisplaysAfterRead},
    };
    return actions;
}

} // namespace larkspan::sim
