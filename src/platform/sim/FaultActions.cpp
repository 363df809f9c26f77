#include "platform/sim/ScenarioAction.h"
#include "platform/sim/ScenarioSubjects.h"

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
        return fmt::format("there is no permission \"{}\"", permission);
    return done;
}

template <bool hung>
Outcome hang(Stage& stage, const json& fields) {
    return withApp(stage, fields, [](SimMac& mac, ProcessId pid) { mac.hang(pid, hung); });
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
    return fmt::format("no system has a private function \"{}\"", name);
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

Outcome refuseDockSizes(Stage& stage, const json& fields) {
    stage.mac.refuseDockSizes(fields.value("refuse", true));
    return done;
}

Outcome changeDisplaysAfterRead(Stage& stage, const json& fields) {
    const std::string displays = text(fields, "displays");
    if (stage.mac.changeDisplaysAfterRead(displays)) return done;
    return fmt::format("\"{}\" describes no displays", displays);
}

template <void (SimMac::*method)()>
Outcome onMac(Stage& stage, const json&) {
    (stage.mac.*method)();
    return done;
}

} // namespace

const std::vector<ScenarioAction>& faultActions() {
    constexpr Field app{"app", FieldKind::text, true};
    static const std::vector<ScenarioAction> actions{
        {"refuse", {{"permission", FieldKind::text, true}}, permit<true>},
        {"grant", {{"permission", FieldKind::text, true}}, permit<false>},
        {"freezeScreenRecording", {}, onMac<&SimMac::freezeScreenRecording>},
        {"hang", {app}, hang<true>},
        {"release", {app}, hang<false>},
        {"answerAfter", {app, {"seconds", FieldKind::number, true}}, answerAfter},
        {"lieAboutFrames",
         {app, {"x", FieldKind::number, true}, {"y", FieldKind::number, true}},
         lieAboutFrames},
        {"dieDuringRead", {app, {"calls", FieldKind::index, true}}, dieDuringRead},
        {"openWindows", {app, {"count", FieldKind::index, true}}, openWindows},
        {"removeFunction", {{"name", FieldKind::text, true}}, removeFunction},
        {"removeAllFunctions", {}, onMac<&SimMac::removeAllFunctions>},
        {"disturbEvents",
         {{"lost", FieldKind::flag}, {"doubled", FieldKind::flag}, {"late", FieldKind::number}},
         disturbEvents},
        {"disableTaps", {}, disableTaps},
        {"removeDock", {}, onMac<&SimMac::removeDock>},
        {"startDock", {}, onMac<&SimMac::startDock>},
        {"refuseDockSizes", {{"refuse", FieldKind::flag}}, refuseDockSizes},
        {"changeDisplaysAfterRead", {{"displays", FieldKind::text, true}}, changeDisplaysAfterRead},
    };
    return actions;
}

} // namespace larkspan::sim
