#include "ui/BarOnScreen.h"

#include <QCoreApplication>

#include <algorithm>

namespace larkspan::ui {

BarOnScreen::Panels::Panels(AppController& app, BarOnScreen& stage)
    : views(app.look(), stage.views, stage.appearance, stage.dressing, stage.desktop) {
    // A picture is taken of what has come to rest, and nothing waits for it.
    stage.appearance.set({.reducesMotion = true});
}

std::unique_ptr<BarPanel> BarOnScreen::Panels::makePanel(const Screen& screen,
                                                         BarInteraction& bar) {
    auto panel = views.makePanel(screen, bar);
    made.push_back(static_cast<QuickBarPanel*>(panel.get()));
    return panel;
}

BarOnScreen::BarOnScreen(std::string_view displays)
    : mac(displays)
    , app(mac.platform(), [this](AppController& controller) {
        auto panels = std::make_unique<Panels>(controller, *this);
        panels_ = panels.get();
        return panels;
    }) {}

BarOnScreen::~BarOnScreen() {
    app.stop();
}

void BarOnScreen::openApps(const std::vector<std::string>& names) {
    for (const std::string& name : names) {
        const std::string identifier = "com.example." + name;
        mac.install(identifier, name);
        mac.openWindow(mac.launch(identifier), {.title = name});
    }
}

void BarOnScreen::start() {
    app.start();
    settle();
}

void BarOnScreen::settle() {
    mac.scheduler.runFor(3);
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents();
    // Icons that were drawn from another size first are made one a turn.
    for (int turn = 0; turn < 200; ++turn)
        QCoreApplication::processEvents();
}

int BarOnScreen::tileOf(const std::string& name) {
    const auto& tiles = bar().tiles();
    const auto found = std::ranges::find(tiles, name, &BarTile::name);
    return found == tiles.end() ? -1 : static_cast<int>(found - tiles.begin());
}

QImage BarOnScreen::picture() {
    return panel().window().grabWindow();
}

} // namespace larkspan::ui
