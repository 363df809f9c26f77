#include "adapters/sim/world/Displays.h"

#include "platform/numberFromText.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

namespace larkspan::sim {

namespace {

constexpr std::size_t mostSpaces = 16;

/// The parts between separators, without the spaces around them.
std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    while (true) {
        const std::size_t end = std::min(text.find(separator), text.size());
        std::string_view part = text.substr(0, end);
        const auto begin = part.find_first_not_of(' ');
        if (begin != std::string_view::npos)
            parts.push_back(part.substr(begin, part.find_last_not_of(' ') - begin + 1));
        if (end == text.size()) return parts;
        text.remove_prefix(end + 1);
    }
}

std::optional<double> positiveNumber(std::string_view text) {
    const auto number = numberFromText(text);
    return number && *number > 0 ? number : std::nullopt;
}

std::optional<Size> parseSize(std::string_view text) {
    const auto cross = text.find('x');
    if (cross == std::string_view::npos) return std::nullopt;
    const auto width = positiveNumber(text.substr(0, cross));
    const auto height = positiveNumber(text.substr(cross + 1));
    if (!width || !height) return std::nullopt;
    return Size{*width, *height};
}

} // namespace

Space Displays::makeSpace(int type) {
    const SpaceId id = ++lastSpace_;
    // The window server lists the very first desktop without a UUID.
    return {id, type, id == 1 ? "" : fmt::format("5FACE000-0000-4000-8000-{:012X}", id)};
}

std::optional<Display> Displays::parse(std::string_view part) {
    const auto words = split(part, ' ');
    const auto size = words.empty() ? std::nullopt : parseSize(words.front());
    if (!size) return std::nullopt;
    Display display{.bounds = {0, 0, size->width, size->height}};
    std::size_t spaceCount = 1;
    for (auto word = words.begin() + 1; word != words.end(); ++word) {
        const auto equals = word->find('=');
        if (equals == std::string_view::npos) return std::nullopt;
        const auto key = word->substr(0, equals);
        const auto value = word->substr(equals + 1);
        const auto number = positiveNumber(value);
        if (key == "name")
            display.identifier = value;
        else if (key == "scale" && number)
            display.scale = *number;
        else if (key == "spaces" && number && *number >= 1 && *number <= mostSpaces)
            spaceCount = static_cast<std::size_t>(*number);
        else
            return std::nullopt;
    }
    display.spaces.resize(spaceCount);
    return display;
}

DisplayId Displays::add(std::string_view description) {
    auto display = parse(description);
    if (!display) return 0;
    display->id = ++lastDisplay_;
    if (display->identifier.empty())
        display->identifier = fmt::format("D15B1A70-0000-4000-8000-{:012X}", display->id);
    for (Space& space : display->spaces)
        space = makeSpace(0);
    put(*std::move(display));
    return lastDisplay_;
}

bool Displays::isReadable(std::string_view description) const {
    const auto parts = split(description, ',');
    return !parts.empty() && std::all_of(parts.begin(), parts.end(),
                                         [](auto part) { return parse(part).has_value(); });
}

bool Displays::set(std::string_view description) {
    if (!isReadable(description)) return false;
    std::vector<DisplayId> old;
    for (const Display& display : world_.displays)
        old.push_back(display.id);
    for (const auto part : split(description, ','))
        add(part);
    for (const DisplayId display : old)
        unplug(display);
    return true;
}

void Displays::arrange() {
    double x = 0;
    for (Display& display : world_.displays) {
        const double moved = x - display.bounds.x;
        if (moved != 0) {
            for (Window& window : world_.windows) {
                if (window.space && world_.displayOfSpace(*window.space) == &display)
                    window.frame.x += moved;
            }
        }
        display.bounds.x = x;
        x = display.bounds.maxX();
    }
    world_.screensMayHaveChanged();
    world_.windowsDidChange();
}

/// Moves the windows of a removed display to the main one.
void Displays::takeIn(const Display& gone) {
    Display& main = world_.displays.front();
    for (Window& window : world_.windows) {
        const auto isItsSpace = [&](const Space& space) { return space.id == window.space; };
        if (std::none_of(gone.spaces.begin(), gone.spaces.end(), isItsSpace)) continue;
        window.space = main.shown().id;
        // A window keeps its position relative to its display, if the other one is large enough.
        const double right = std::max(0.0, main.bounds.width - window.frame.width);
        const double bottom = std::max(0.0, main.bounds.height - window.frame.height);
        window.frame.x = main.bounds.x + std::clamp(window.frame.x - gone.bounds.x, 0.0, right);
        window.frame.y = main.bounds.y + std::clamp(window.frame.y - gone.bounds.y, 0.0, bottom);
    }
}

std::optional<Display> Displays::takeAway(DisplayId id) {
    const auto found = std::find_if(world_.displays.begin(), world_.displays.end(),
                                    [id](const Display& display) { return display.id == id; });
    if (found == world_.displays.end()) return std::nullopt;
    Display gone = std::move(*found);
    world_.displays.erase(found);
    if (world_.displays.empty())
        lastOne_ = gone;
    else
        takeIn(gone);
    arrange();
    return gone;
}

void Displays::put(Display display) {
    world_.displays.push_back(std::move(display));
    if (const auto gone = std::exchange(lastOne_, std::nullopt)) takeIn(*gone);
    arrange();
}

void Displays::unplug(DisplayId id) {
    takeAway(id);
}

void Displays::mirror(DisplayId id) {
    if (world_.displays.size() < 2) return;
    if (auto display = takeAway(id)) mirroring_.push_back(*std::move(display));
}

void Displays::endMirroring() {
    for (Display& display : std::exchange(mirroring_, {}))
        put(std::move(display));
}

bool Displays::switchSpace(DisplayId id, std::size_t index) {
    Display* display = world_.display(id);
    if (!display || index >= display->spaces.size()) return false;
    if (display->current == index) return true;
    display->current = index;
    world_.announce(WorkspaceEvent::Kind::activeSpaceDidChange);
    world_.windowsDidChange();
    return true;
}

void Displays::showSpace(SpaceId space) {
    Display* display = world_.displayOfSpace(space);
    if (!display) return;
    const auto found = std::find_if(display->spaces.begin(), display->spaces.end(),
                                    [space](const Space& each) { return each.id == space; });
    switchSpace(display->id, static_cast<std::size_t>(found - display->spaces.begin()));
}

SpaceId Displays::addSpace(DisplayId id) {
    Display* display = world_.display(id);
    if (!display) return 0;
    display->spaces.push_back(makeSpace(0));
    world_.windowsDidChange();
    return display->spaces.back().id;
}

SpaceId Displays::addFullScreenSpace(Display& display) {
    const auto place = display.spaces.begin() + static_cast<std::ptrdiff_t>(display.current) + 1;
    return display.spaces.insert(place, makeSpace(4))->id;
}

void Displays::removeSpace(SpaceId space) {
    Display* display = world_.displayOfSpace(space);
    if (!display || display->spaces.size() < 2) return;
    const SpaceId shown = display->shown().id;
    const auto found = std::find_if(display->spaces.begin(), display->spaces.end(),
                                    [space](const Space& each) { return each.id == space; });
    const auto index = static_cast<std::size_t>(found - display->spaces.begin());
    display->spaces.erase(found);
    if (index <= display->current && display->current > 0) --display->current;
    for (Window& window : world_.windows) {
        if (window.space == space) window.space = display->shown().id;
    }
    if (display->shown().id != shown) world_.announce(WorkspaceEvent::Kind::activeSpaceDidChange);
    world_.windowsDidChange();
}

} // namespace larkspan::sim
