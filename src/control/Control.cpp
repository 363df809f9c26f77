#include "control/Control.h"

#include "bar/TileName.h"
#include "bar/barTiles.h"
#include "control/DiagnosticsReport.h"
#include "control/MenuReport.h"
#include "control/SettingsReport.h"
#include "control/StateReport.h"
#include "settings/SettingValue.h"

#include <algorithm>
#include <charconv>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <optional>
#include <type_traits>
#include <utility>
#include <variant>

namespace larkspan {
namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

/// A tile as it was found, with its frame on the screen; empty where it cannot be seen. A copy: a
/// click may change the very lists that it was found in.
struct FoundTile {
    BarTile tile;
    Rect frame;
};

/// Before the first bars are needed: one of the tiles that the main display's bar would have.
std::optional<FoundTile> findWithoutBars(AppController& controller, const TileName& name) {
    const auto screens = controller.screens();
    const DisplayId main = screens.empty() ? 0 : screens.front().display;
    auto tiles = barTiles(controller.store(), main, *controller.look().showsTrash);
    const auto place = name.bestOf(tiles, main);
    return place ? std::optional(FoundTile{std::move(tiles[*place]), {}}) : std::nullopt;
}

std::optional<FoundTile> findTile(AppController& controller, const TileName& name) {
    const auto* bars = controller.bars();
    if (!bars || bars->bars().empty()) return findWithoutBars(controller, name);
    const auto found = findTile(bars->bars(), name);
    if (!found) return std::nullopt;
    const auto& bar = *found->bar;
    return FoundTile{bar.tiles()[static_cast<std::size_t>(found->tile)],
                     bar.isShown() ? bar.frameOfTile(found->tile) : Rect{}};
}

/// Returns false if the word is not a modifier.
bool addModifier(ClickModifiers& modifiers, std::string_view word) {
    if (word == "--option") return modifiers.option = true;
    if (word == "--command") return modifiers.command = true;
    if (word == "--new-instance") return modifiers.newInstance = true;
    return false;
}

ControlAnswer noSuchItem(const TileName& name) {
    const bool isPlaced = name.display || name.space;
    return {ExitCode::rejected, fmt::format("there is no item \"{}\" {}", name.id,
                                            isPlaced ? "in that group" : "on the bar")};
}

/// The setting that a person may see and change under that key; nullptr when there is none.
const Setting* findOffered(const AppController& controller, std::string_view key) {
    const auto* setting = findSetting(controller.settings().table(), key);
    return setting && setting->isOffered() ? setting : nullptr;
}

ControlAnswer noSuchSetting(const std::string& key) {
    return {ExitCode::rejected, fmt::format("there is no setting named {}", key)};
}

/// A whole number as people write it: tools of the X server give those of windows as 0x1400003.
template <typename Number>
std::optional<Number> wholeNumber(std::string_view text) {
    const bool isHexadecimal = text.starts_with("0x");
    if (isHexadecimal) text.remove_prefix(2);
    Number number = 0;
    const auto* end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number, isHexadecimal ? 16 : 10);
    return error == std::errc() && rest == end ? std::optional(number) : std::nullopt;
}

/// The tile that the words name, without those that were needed for it; what is wrong with them
/// instead where they cannot be read.
std::variant<TileName, std::string> takeTileName(Words& words) {
    TileName name{.id = words[0]};
    words.erase(words.begin());
    const auto take = [&words](const char* option, auto& number) {
        const auto found = std::ranges::find(words, option);
        if (found == words.end()) return true;
        if (found + 1 == words.end()) return false;
        number = wholeNumber<typename std::decay_t<decltype(number)>::value_type>(*(found + 1));
        words.erase(found, found + 2);
        return number.has_value();
    };
    if (!take("--display", name.display)) return "--display takes the number of a display";
    if (!take("--space", name.space)) return "--space takes the number of a Space";
    return name;
}

/// Why the window cannot be moved to the Space; absent if it can be tried. A window in full screen
/// is not tried: it would stay, and look as if the system ignored all moves.
std::optional<std::string> moveRefusalReason(const AppController& controller, WindowId window,
                                             SpaceId space) {
    const auto& store = controller.store();
    if (!store.spaceMap() || !controller.canMoveWindows())
        return "windows cannot be moved between Spaces here";
    const auto& map = *store.spaceMap();
    const auto isFullScreen = [&](SpaceId each) { return map.fullScreen.contains(each); };
    const auto spaces = map.windowSpaces.find(window);
    if (spaces == map.windowSpaces.end() ||
        std::ranges::find(store.latestWindows(), window, &WindowInfo::id) ==
            store.latestWindows().end())
        return fmt::format(
            "no Space has a window {} (minimised and hidden windows are on no Space)", window);
    if (!map.owners.contains(space)) return fmt::format("there is no Space {}", space);
    if (isFullScreen(space)) return fmt::format("Space {} belongs to a full-screen window", space);
    if (std::ranges::any_of(spaces->second, isFullScreen))
        return fmt::format("window {} is in full screen", window);
    return std::nullopt;
}

ControlAnswer moveReply(WindowMover::Outcome outcome, WindowId window, SpaceId space) {
    switch (outcome) {
    case WindowMover::Outcome::moved:
        return {};
    case WindowMover::Outcome::refused:
        return {ExitCode::rejected,
                fmt::format("window {} cannot be moved to Space {}", window, space)};
    case WindowMover::Outcome::stayed:
        break;
    }
    return {ExitCode::rejected, fmt::format("window {} did not move to Space {}", window, space)};
}

std::string dump(const json& value, int indent) {
    // Titles and names may contain invalid UTF-8.
    return value.dump(indent, ' ', false, json::error_handler_t::replace);
}

std::optional<Words> parseWords(std::string_view line) {
    const auto request = json::parse(line, nullptr, false);
    if (!request.is_array()) return std::nullopt;
    Words words;
    for (const auto& word : request) {
        if (!word.is_string()) return std::nullopt;
        words.push_back(word.get<std::string>());
    }
    return words;
}

} // namespace

struct Control::Command {
    std::string_view name;
    /// Its arguments as the help shows them; those in brackets are optional.
    std::string_view usage;
    std::size_t fewest;
    std::size_t most;
    void (Control::*run)(const Words& arguments, const Reply& reply);
};

const std::vector<Control::Command>& Control::commands() {
    static const std::vector<Command> all{
        {"state", "", 0, 0, &Control::state},
        {"mode", "[bar|systemDock]", 0, 1, &Control::mode},
        {"click", "ID [--option] [--command] [--new-instance] [--display N] [--space N]", 1, 8,
         &Control::click},
        {"menu", "ID [LINE] [--display N] [--space N]", 1, 6, &Control::menu},
        {"open", "ID FILE...", 2, 1000, &Control::open},
        {"move-window", "NUMBER SPACE", 2, 2, &Control::moveWindow},
        {"focus", "", 0, 0, &Control::focus},
        {"get", "[KEY]", 0, 1, &Control::get},
        {"set", "KEY VALUE", 2, 2, &Control::set},
        {"reset-appearance", "", 0, 0, &Control::resetAppearance},
        {"pin", "ID", 1, 1, &Control::pin},
        {"unpin", "ID", 1, 1, &Control::unpin},
        {"log", "[FILE]", 0, 0, &Control::log},
        {"reopen", "", 0, 0, &Control::reopen},
        {"quit", "", 0, 0, &Control::quit},
    };
    return all;
}

std::string ControlAnswer::toLine() const {
    return dump({{"code", static_cast<int>(code)}, {"text", text}}, -1);
}

ControlAnswer ControlAnswer::fromLine(std::string_view line) {
    const auto answer = json::parse(line, nullptr, false);
    const bool isAnswer = answer.is_object() && answer.contains("code") &&
                          answer["code"].is_number_integer() && answer.contains("text") &&
                          answer["text"].is_string();
    if (!isAnswer) return {ExitCode::failed, "the running instance sent no valid reply"};
    return {static_cast<ExitCode>(answer["code"].get<int>()), answer["text"].get<std::string>()};
}

std::string Control::requestLine(const Words& words) {
    return dump(words, -1);
}

void Control::answerLine(std::string_view line, std::function<void(std::string)> reply) {
    const auto words = parseWords(line);
    if (!words)
        return reply(ControlAnswer{ExitCode::rejected, "a request must be a JSON array of strings"}
                         .toLine());
    answer(*words,
           [reply = std::move(reply)](const ControlAnswer& given) { reply(given.toLine()); });
}

void Control::answer(const Words& words, const Reply& reply) {
    if (words.empty()) return reply({ExitCode::rejected, "a request must name a command"});
    for (const auto& command : commands()) {
        if (command.name != words.front()) continue;
        const Words arguments(words.begin() + 1, words.end());
        if (arguments.size() < command.fewest || arguments.size() > command.most)
            return reply({ExitCode::rejected,
                          fmt::format("usage: larkspan {} {}", command.name, command.usage)});
        return (this->*command.run)(arguments, reply);
    }
    reply({ExitCode::rejected, fmt::format("unknown command {}", words.front())});
}

void Control::state(const Words&, const Reply& reply) {
    reply({ExitCode::succeeded, dump(stateReport(controller_), 2)});
}

void Control::mode(const Words& words, const Reply& reply) {
    if (words.empty())
        return reply({ExitCode::succeeded, std::string(rawValue(controller_.mode()))});
    if (words[0] == "bar" || words[0] == rawValue(BarMode::vantrel))
        controller_.useVantrel();
    else if (words[0] == rawValue(BarMode::systemDock))
        controller_.useSystemDock();
    else
        return reply({ExitCode::rejected, "the mode must be bar or systemDock"});
    reply({});
}

void Control::click(const Words& words, const Reply& reply) {
    Words options = words;
    const auto named = takeTileName(options);
    if (const auto* error = std::get_if<std::string>(&named))
        return reply({ExitCode::rejected, *error});
    const auto& name = std::get<TileName>(named);
    const auto found = findTile(controller_, name);
    if (!found) return reply(noSuchItem(name));
    ClickModifiers modifiers;
    for (const auto& word : options)
        if (!addModifier(modifiers, word))
            return reply({ExitCode::rejected, fmt::format("a click has no option {}", word)});
    controller_.tileActions().click(found->tile, found->frame, modifiers);
    reply({});
}

void Control::menu(const Words& words, const Reply& reply) {
    Words lines = words;
    const auto named = takeTileName(lines);
    if (const auto* error = std::get_if<std::string>(&named))
        return reply({ExitCode::rejected, *error});
    const auto& name = std::get<TileName>(named);
    const auto found = findTile(controller_, name);
    if (!found) return reply(noSuchItem(name));
    if (lines.size() > 1)
        return reply({ExitCode::rejected, "name one line of the menu, in quotes if it has spaces"});
    const Menu menu = controller_.tileActions().menu(found->tile, found->frame);
    if (lines.empty()) return reply({ExitCode::succeeded, dump(menuReport(menu), 2)});
    const auto* line = findLine(menu, lines[0]);
    if (!line) return reply({ExitCode::rejected, fmt::format("the menu has no \"{}\"", lines[0])});
    if (!line->isEnabled || !line->action)
        return reply({ExitCode::rejected, fmt::format("\"{}\" is not enabled", lines[0])});
    line->action();
    reply({});
}

void Control::open(const Words& words, const Reply& reply) {
    const auto item = controller_.store().makePinnedItem(words[0]);
    if (!item || !item->url)
        return reply({ExitCode::rejected, fmt::format("there is no application {}", words[0])});
    const Words files(words.begin() + 1, words.end());
    for (const auto& file : files)
        // The running instance has another working directory than the sender.
        if (!file.starts_with('/') && file.find(':') == std::string::npos)
            return reply(
                {ExitCode::rejected, fmt::format("{} must be an absolute path or a URL", file)});
    if (controller_.actions().openFiles(files, *item)) return reply({});
    reply({ExitCode::rejected, fmt::format("{} could not be opened", item->name)});
}

void Control::moveWindow(const Words& words, const Reply& reply) {
    const auto window = wholeNumber<WindowId>(words[0]);
    const auto space = wholeNumber<SpaceId>(words[1]);
    if (!window || !space)
        return reply({ExitCode::rejected, "the window and the Space must be whole numbers"});
    if (const auto reason = moveRefusalReason(controller_, *window, *space))
        return reply({ExitCode::rejected, *reason});
    controller_.moveWindow(*window, *space,
                           [reply, window = *window, space = *space](WindowMover::Outcome outcome) {
                               reply(moveReply(outcome, window, space));
                           });
}

void Control::focus(const Words&, const Reply& reply) {
    if (!controller_.focusBar())
        return reply({ExitCode::rejected, "no bar is shown that could take the keyboard focus"});
    reply({});
}

void Control::get(const Words& words, const Reply& reply) {
    if (words.empty()) return reply({ExitCode::succeeded, dump(settingsReport(controller_), 2)});
    const auto* setting = findOffered(controller_, words[0]);
    if (!setting) return reply(noSuchSetting(words[0]));
    const auto value = settingReport(controller_, *setting);
    reply({ExitCode::succeeded, value.is_string() ? value.get<std::string>() : dump(value, -1)});
}

void Control::set(const Words& words, const Reply& reply) {
    const auto* setting = findOffered(controller_, words[0]);
    if (!setting) return reply(noSuchSetting(words[0]));
    const auto value = parseSetting(*setting, words[1]);
    if (!value)
        return reply(
            {ExitCode::rejected, fmt::format("{} must be {}", words[0], acceptedText(*setting))});
    controller_.changeSetting(*setting, *value);
    reply({});
}

void Control::resetAppearance(const Words&, const Reply& reply) {
    controller_.look().resetAppearance();
    reply({});
}

void Control::pin(const Words& words, const Reply& reply) {
    if (controller_.actions().keep(words[0])) return reply({});
    reply({ExitCode::rejected, fmt::format("there is no application {}", words[0])});
}

void Control::unpin(const Words& words, const Reply& reply) {
    if (words[0] == finderIdentifier)
        return reply({ExitCode::rejected, "the Finder cannot be unpinned"});
    if (controller_.actions().remove(words[0])) return reply({});
    reply({ExitCode::rejected, fmt::format("{} is not pinned", words[0])});
}

/// With a file name, the sender writes the file: the running instance has another working
/// directory.
void Control::log(const Words&, const Reply& reply) {
    reply({ExitCode::succeeded, diagnosticsReport(controller_)});
}

void Control::reopen(const Words&, const Reply& reply) {
    delegate_.shouldHandleReopen();
    reply({});
}

void Control::quit(const Words&, const Reply& reply) {
    controller_.quit();
    reply({});
}

} // namespace larkspan
