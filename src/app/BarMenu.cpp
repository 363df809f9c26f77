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

/// A bar with another height, set by hand, checks none of these.
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

void addChoices(Menu& menu, AppController& controller, const Setting& setting) {
    // With a single choice, there is nothing to choose.
    if (setting.choices.size() < 2) return;
    menu.push_back(heading(std::string(setting.title)));
    const auto current = controller.settingInEffect(setting);
    for (const auto& choice : setting.choices) {
        const PropertyValue value = std::string(choice.word);
        menu.push_back(
            checked(std::string(choice.title), current == value,
                    [&controller, &setting, value] { controller.changeSetting(setting, value); }));
    }
}

void addHeights(Menu& menu, AppController& controller) {
    menu.push_back(heading(std::string(controller.settings().row("barHeight").title)));
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

void addParts(Menu& menu, AppController& controller) {
    menu.push_back(MenuItem::separator());
    const auto& trash = controller.settings().row("showsTrash");
    const bool isShown = controller.settingInEffect(trash) == PropertyValue(true);
    menu.push_back(checked(std::string(trash.title), isShown, [&controller, &trash, isShown] {
        controller.changeSetting(trash, PropertyValue(!isShown));
    }));
    menu.push_back(
        action("Reset appearance", [&controller] { controller.look().resetAppearance(); }));
}

void addProgram(Menu& menu, AppController& controller) {
    menu.push_back(MenuItem::separator());
    menu.push_back(checked("Open Larkspan at login", controller.opensAtLogin(),
                           [&controller] { controller.toggleLoginItem(); }));
    // Without a Dock, the bar is just hidden.
    menu.push_back(action(controller.hasSystemDock() ? "Use the macOS Dock" : "Hide the bar",
                          [&controller] { controller.useSystemDock(); }));
    menu.push_back(action("Quit Larkspan", [&controller] { controller.quit(); }));
}

} // namespace

Menu barMenu(AppController& controller) {
    Menu menu;
    for (const auto* key : {"style", "glass"})
        addChoices(menu, controller, controller.settings().row(key));
    addHeights(menu, controller);
    addParts(menu, controller);
    addProgram(menu, controller);
    return menu;
}

} // namespace larkspan
