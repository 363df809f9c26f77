#include "app/BarMenu.h"

#include "app/AppController.h"
#include "platform/CoreDock.h"
#include "platform/LoginItem.h"

#include <array>
#include <functional>
#include <string>
#include <utility>

namespace larkspan {
namespace {

struct HeightStep {
    const char* title;
    double points;
};

/// A bar of another height, set by hand, is none of these and checks none.
constexpr std::array<HeightStep, 3> heightSteps{
    {{"Small", 56}, {"Medium", BarSettings::defaultBarHeight}, {"Large", 88}}};

MenuItem heading(std::string title) {
    return {.kind = MenuItem::Kind::heading, .title = std::move(title)};
}

MenuItem action(std::string title, std::function<void()> chosen) {
    MenuItem item{.title = std::move(title)};
    item.action = std::move(chosen);
    return item;
}

MenuItem checked(std::string title, bool isChecked, std::function<void()> chosen) {
    auto item = action(std::move(title), std::move(chosen));
    if (isChecked) item.mark = MenuItem::Mark::check;
    return item;
}

template <typename Value>
MenuItem choice(std::string title, Observed<Value>& property, Value value) {
    return checked(std::move(title), *property == value,
                   [&property, value] { property.set(value); });
}

void addLook(Menu& menu, BarLook& look) {
    if (look.hasIslands()) {
        menu.push_back(heading("Style"));
        menu.push_back(choice("Bar", look.style, BarStyle::bar));
        menu.push_back(choice("Island", look.style, BarStyle::island));
    }
    menu.push_back(heading("Glass"));
    menu.push_back(choice("Clear", look.glass, GlassKind::clear));
    menu.push_back(choice("Frosted", look.glass, GlassKind::regular));
}

void addHeights(Menu& menu, AppController& controller) {
    menu.push_back(heading("Height"));
    if (const auto why = controller.heightRefusalReason()) {
        menu.push_back({.title = *why, .isEnabled = false});
        return;
    }
    const auto current = controller.barHeight();
    for (const auto& step : heightSteps)
        menu.push_back(
            checked(step.title, current == step.points,
                    [&controller, points = step.points] { controller.setBarHeight(points); }));
}

void addParts(Menu& menu, BarLook& look) {
    menu.push_back(MenuItem::separator());
    const bool showsTrash = *look.showsTrash;
    menu.push_back(choice("Show Trash", look.showsTrash, !showsTrash));
    menu.back().mark = showsTrash ? MenuItem::Mark::check : MenuItem::Mark::none;
    menu.push_back(action("Reset appearance", [&look] { look.resetAppearance(); }));
}

void addProgram(Menu& menu, AppController& controller) {
    menu.push_back(MenuItem::separator());
    menu.push_back(checked("Open Larkspan at login", controller.opensAtLogin(),
                           [&controller] { controller.toggleLoginItem(); }));
    // Where no Dock takes the bar's place, all that is left to say is that the bar goes.
    menu.push_back(action(controller.hasSystemDock() ? "Use the macOS Dock" : "Hide the bar",
                          [&controller] { controller.useSystemDock(); }));
    menu.push_back(action("Quit Larkspan", [&controller] { controller.quit(); }));
}

} // namespace

Menu barMenu(AppController& controller) {
    Menu menu;
    addLook(menu, controller.look());
    addHeights(menu, controller);
    addParts(menu, controller.look());
    addProgram(menu, controller);
    return menu;
}

} // namespace larkspan
