#include "app/Control.h"

#include "app/MenuReport.h"
#include "app/NamedSettings.h"
#include "app/RawValues.h"
#include "app/StateReport.h"

#include <algorithm>
#include <fmt/format.h>
#include <nlohmann/json.hpp>
#include <optional>

namespace larkspan {
namespace {

using nlohmann::json;
using Words = std::vector<std::string>;

constexpr int senseless = 2;

/// A tile as a click means it: the item and, for a window app, the group it stands in.
struct Tile {
    const DockItem* item = nullptr;
    const DisplayGroup* group = nullptr;
};

const DockItem* find(const std::vector<DockItem>& items, const std::string& id) {
    const auto found =
        std::find_if(items.begin(), items.end(), [&](const auto& item) { return item.id == id; });
    return found == items.end() ? nullptr : &*found;
}

Tile findInGroups(const DockStore& store, const std::string& id) {
    Tile tile;
    for (const auto& group : *store.windowAppGroups) {
        const auto* item = find(group.items, id);
        // A group on a shown Space counts before one that is elsewhere.
        if (item && (!tile.item || (tile.group->isRing && !group.isRing))) tile = {item, &group};
    }
    return tile;
}

Tile findTile(const DockStore& store, const std::string& id) {
    if (const auto tile = findInGroups(store, id); tile.item) return tile;
    if (const auto* item = find(*store.pinnedItems, id)) return {item};
    return {find(*store.backgroundItems, id)};
}

/// Where the tile stands, as far as is known here: the bar of its display.
Rect barFrame(const BarController* bars, const DisplayGroup* group) {
    if (!bars || bars->bars().empty()) return {};
    const auto& all = bars->bars();
    const auto own = std::find_if(all.begin(), all.end(), [&](const auto& bar) {
        return group && group->display == bar.screen.display;
    });
    return (own == all.end() ? all.front() : *own).panel->barFrame();
}

/// Answers whether the word is one.
bool addModifier(ClickModifiers& modifiers, std::string_view word) {
    if (word == "--option") return modifiers.option = true;
    if (word == "--command") return modifiers.command = true;
    if (word == "--new-instance") return modifiers.newInstance = true;
    return false;
}

ControlAnswer noSuchItem(const std::string& id) {
    return {senseless, fmt::format("there is no item {} on the bar", id)};
}

std::string dump(const json& value, int indent) {
    // Titles and names may hold bytes that are no UTF-8.
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
    /// Its arguments as the help writes them; words in brackets may be left out.
    std::string_view usage;
    std::size_t fewest;
    std::size_t most;
    ControlAnswer (Control::*run)(const Words& arguments);
};

const std::vector<Control::Command>& Control::commands() {
    static const std::vector<Command> all{
        {"state", "", 0, 0, &Control::state},
        {"mode", "[vantrel|systemDock]", 0, 1, &Control::mode},
        {"click", "ID [--option] [--command] [--new-instance]", 1, 4, &Control::click},
        {"menu", "ID [LINE]", 1, 2, &Control::menu},
        {"open", "ID FILE...", 2, 1000, &Control::open},
        {"focus", "", 0, 0, &Control::focus},
        {"get", "[KEY]", 0, 1, &Control::get},
        {"set", "KEY VALUE", 2, 2, &Control::set},
        {"reset-appearance", "", 0, 0, &Control::resetAppearance},
        {"keep", "ID", 1, 1, &Control::keep},
        {"remove", "ID", 1, 1, &Control::remove},
        {"reopen", "", 0, 0, &Control::reopen},
        {"quit", "", 0, 0, &Control::quit},
    };
    return all;
}

std::string ControlAnswer::toLine() const {
    return dump({{"code", code}, {"text", text}}, -1);
}

ControlAnswer ControlAnswer::fromLine(std::string_view line) {
    const auto answer = json::parse(line, nullptr, false);
    const bool isAnswer = answer.is_object() && answer.contains("code") &&
                          answer["code"].is_number_integer() && answer.contains("text") &&
                          answer["text"].is_string();
    if (!isAnswer) return {1, "the running instance gave no answer"};
    return {answer["code"].get<int>(), answer["text"].get<std::string>()};
}

std::string Control::requestLine(const Words& words) {
    return dump(words, -1);
}

std::string Control::answerLine(std::string_view line) {
    const auto words = parseWords(line);
    if (!words) return ControlAnswer{senseless, "a request is a list of words"}.toLine();
    return answer(*words).toLine();
}

ControlAnswer Control::answer(const Words& words) {
    if (words.empty()) return {senseless, "a request names a command"};
    for (const auto& command : commands()) {
        if (command.name != words.front()) continue;
        const Words arguments(words.begin() + 1, words.end());
        if (arguments.size() < command.fewest || arguments.size() > command.most)
            return {senseless, fmt::format("usage: larkspan {} {}", command.name, command.usage)};
        return (this->*command.run)(arguments);
    }
    return {senseless, fmt::format("there is no command {}", words.front())};
}

ControlAnswer Control::state(const Words&) {
    return {0, dump(stateReport(controller_), 2)};
}

ControlAnswer Control::mode(const Words& words) {
    if (words.empty()) return {0, std::string(rawValue(controller_.mode()))};
    const auto mode = fromRawValue<BarMode>(words[0]);
    if (!mode) return {senseless, "mode is vantrel or systemDock"};
    if (*mode == BarMode::vantrel)
        controller_.useVantrel();
    else
        controller_.useSystemDock();
    return {};
}

ControlAnswer Control::click(const Words& words) {
    const auto tile = findTile(controller_.store(), words[0]);
    if (!tile.item) return noSuchItem(words[0]);
    ClickModifiers modifiers;
    for (const auto& word : Words(words.begin() + 1, words.end()))
        if (!addModifier(modifiers, word))
            return {senseless, fmt::format("a click has no option {}", word)};
    // Copies: the click may regroup the very lists it was found in.
    const DockItem item = *tile.item;
    const auto group = tile.group ? std::optional(*tile.group) : std::nullopt;
    const auto frame = barFrame(controller_.bars(), tile.group);
    controller_.click().click(item, group ? &*group : nullptr, frame, modifiers);
    return {};
}

ControlAnswer Control::menu(const Words& words) {
    const auto tile = findTile(controller_.store(), words[0]);
    if (!tile.item) return noSuchItem(words[0]);
    const auto frame = barFrame(controller_.bars(), tile.group);
    const Menu menu = controller_.itemMenu().menu(*tile.item, tile.group, frame);
    if (words.size() == 1) return {0, dump(menuReport(menu), 2)};
    const auto* line = findLine(menu, words[1]);
    if (!line) return {senseless, fmt::format("the menu has no \"{}\"", words[1])};
    if (!line->isEnabled || !line->action)
        return {senseless, fmt::format("\"{}\" is not enabled", words[1])};
    line->action();
    return {};
}

ControlAnswer Control::open(const Words& words) {
    const auto item = controller_.store().makePinnedItem(words[0]);
    if (!item || !item->url)
        return {senseless, fmt::format("there is no application {}", words[0])};
    const Words files(words.begin() + 1, words.end());
    for (const auto& file : files)
        // The running instance is in another folder than whoever asks.
        if (!file.starts_with('/') && file.find(':') == std::string::npos)
            return {senseless, fmt::format("{} is no whole path and no address", file)};
    if (controller_.actions().openFiles(files, *item)) return {};
    return {senseless, fmt::format("{} could not be opened", item->name)};
}

ControlAnswer Control::focus(const Words&) {
    return controller_.focusBar()
               ? ControlAnswer{}
               : ControlAnswer{senseless, "no bar is shown that could take the keyboard"};
}

ControlAnswer Control::get(const Words& words) {
    if (words.empty()) return {0, dump(allSettings(controller_), 2)};
    const auto value = namedSetting(controller_, words[0]);
    if (!value) return {senseless, fmt::format("there is no setting named {}", words[0])};
    return {0, value->is_string() ? value->get<std::string>() : dump(*value, -1)};
}

ControlAnswer Control::set(const Words& words) {
    const auto complaint = setNamedSetting(controller_, words[0], words[1]);
    return complaint ? ControlAnswer{senseless, *complaint} : ControlAnswer{};
}

ControlAnswer Control::resetAppearance(const Words&) {
    controller_.look().resetAppearance();
    return {};
}

ControlAnswer Control::keep(const Words& words) {
    if (controller_.actions().keep(words[0])) return {};
    return {senseless, fmt::format("there is no application {}", words[0])};
}

ControlAnswer Control::remove(const Words& words) {
    if (words[0] == finderIdentifier) return {senseless, "Finder always stays on the bar"};
    if (controller_.actions().remove(words[0])) return {};
    return {senseless, fmt::format("{} is not kept on the bar", words[0])};
}

ControlAnswer Control::reopen(const Words&) {
    delegate_.shouldHandleReopen();
    return {};
}

ControlAnswer Control::quit(const Words&) {
    controller_.platform().application.terminate();
    return {};
}

} // namespace larkspan
