#include "RunningBar.h"

#include <stdexcept>

namespace larkspan::e2e {

using nlohmann::json;

namespace {

std::vector<std::string> commandLine(const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {LARKSPAN_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return words;
}

} // namespace

CommandResult runLarkspan(const PrivateDesktop& desktop,
                          const std::vector<std::string>& arguments) {
    return runCommand(
        {commandLine(arguments), desktop.environment(), desktop.home() / "command.log"});
}

RunningBar::RunningBar(PrivateDesktop& desktop)
    : desktop_(desktop)
    , process_(std::make_unique<ChildProcess>(ChildProcess::Start{
          commandLine({"--log"}), desktop.environment(), desktop.home() / "larkspan.log"})) {
    if (!desktop_.screen().eventually([this] { return isShown(); }))
        throw std::runtime_error("no bar: " + contentsOf(desktop_.home() / "larkspan.log"));
}

CommandResult RunningBar::command(const std::vector<std::string>& arguments) const {
    return runLarkspan(desktop_, arguments);
}

json RunningBar::state() const {
    const auto answer = command({"state"});
    return answer.exitCode == 0 ? json::parse(answer.output, nullptr, false) : json();
}

std::optional<ReportedItem> RunningBar::item(const std::string& id) const {
    const auto report = state();
    if (!report.is_object()) return std::nullopt;
    const auto find = [&](const json& items) -> std::optional<json> {
        for (const auto& item : items)
            if (item.value("id", "") == id) return item;
        return std::nullopt;
    };
    for (const auto& group : report.value("groups", json::array()))
        if (const auto found = find(group.value("items", json::array())))
            return ReportedItem{"groups", *found};
    for (const auto* section : {"pinned", "background"})
        if (const auto found = find(report.value(section, json::array())))
            return ReportedItem{section, *found};
    return std::nullopt;
}

std::string RunningBar::frontApp() const {
    const auto report = state();
    return report.is_object() && report.contains("frontmost") && report["frontmost"].is_object() &&
                   report["frontmost"]["id"].is_string()
               ? report["frontmost"].value("id", "")
               : std::string();
}

bool RunningBar::isShown() const {
    const auto report = state();
    return report.is_object() && report.contains("bars") && !report["bars"].empty() &&
           report["bars"][0].value("shown", false);
}

Area RunningBar::area() const {
    const auto report = state();
    if (!report.is_object() || report["bars"].empty()) return {};
    // Screen coordinates have y upwards from the bottom of the first screen.
    const auto frame = report["bars"][0]["frame"].get<std::vector<double>>();
    const auto height = static_cast<int>(frame.at(3));
    return {static_cast<int>(frame.at(0)),
            desktop_.screen().height() - static_cast<int>(frame.at(1)) - height,
            static_cast<int>(frame.at(2)), height};
}

std::optional<Area> RunningBar::tile(const TestApp& app) const {
    const auto bar = area();
    if (bar.width == 0) return std::nullopt;
    return desktop_.screen().find(app.color, bar);
}

void RunningBar::click(const TestApp& app, int button) {
    std::optional<Area> last;
    const auto standsStill = [&] {
        const auto now = tile(app);
        const bool isSame = now && now == last;
        last = now;
        return isSame;
    };
    if (!desktop_.screen().eventually(standsStill))
        throw std::runtime_error(app.id + " has no tile");
    clickAt(*last, button);
}

void RunningBar::clickAt(const Area& area, int button) {
    auto& screen = desktop_.screen();
    screen.movePointer(area.centerX(), area.centerY());
    command({"state"}); // replied to by the run loop that also handles the pointer's events
    screen.press(button);
    command({"state"});
    screen.release(button);
    command({"state"});
    screen.movePointer(0, 0);
}

std::optional<int> RunningBar::quit() {
    command({"quit"});
    return process_->waitForExit(10);
}

} // namespace larkspan::e2e
