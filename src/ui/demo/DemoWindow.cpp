#include "ui/demo/DemoWindow.h"

#include "ui/demo/DemoBarPanels.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace larkspan::ui {

namespace {

/// Two frames of a usual screen: the Mac's timers need no finer beat.
constexpr int tickMilliseconds = 33;
/// A program that was stopped for long does not make up for it in one go.
constexpr double longestTick = 0.25;
/// The largest width of a picture, in pixels.
constexpr double widestPicture = 1600;

} // namespace

DemoWindow::DemoWindow(Time time)
    : time_(time)
    , stage_([this](AppController& controller) { return makeBarPanels(controller); })
    , desktop_(stage_.mac, contentItem())
    , dock_(stage_.mac, desktop_, time == Time::real)
    , privacy_(stage_.mac, desktop_) {
    setTitle("Larkspan on a simulated Mac");
    setColor(QColor(16, 16, 20));
    desktop_.setTransformOrigin(QQuickItem::TopLeft);
    // A picture shows where tiles end, not where they are on their way.
    appearance_.set({.reducesMotion = time == Time::virtualOnly});
    const auto show = [this] {
        stage_.mac.scheduler.runUntilIdle();
        showChanges();
    };
    desktop_.onUse = dock_.onUse = privacy_.onUse = show;
    desktop_.onStatusItem = [this](const Menu& menu, const QRectF& item) { openMenu(menu, item); };
    desktop_.onSystemMenu = [this](const QRectF& sign) { openMenu(systemMenu(), sign); };
    stage_.onStart = [this](AppController& controller) {
        permissions_ = std::make_unique<DemoPermissions>(stage_.mac, controller.permissions(),
                                                         views_, appearance_, desktop_);
    };
    stage_.onEnd = [this] { permissions_.reset(); };
    resize(1280, 800);
    connect(this, &QQuickWindow::widthChanged, this, &DemoWindow::showChanges);
    connect(this, &QQuickWindow::heightChanged, this, &DemoWindow::showChanges);
    if (time_ == Time::virtualOnly) return;
    clock_.start();
    connect(&timer_, &QTimer::timeout, this, &DemoWindow::tick);
    timer_.start(tickMilliseconds);
}

DemoWindow::~DemoWindow() {
    // The stage ends the program after the views here are gone.
    stage_.onEnd = {};
}

Menu DemoWindow::systemMenu() {
    Menu menu{{.title = "Privacy & Security…",
               .action =
                   [this] {
                       stage_.mac.world().privacy.showPane(sim::Permission::accessibility);
                       showChanges();
                   }},
              MenuItem::separator()};
    if (stage_.delegate()) {
        menu.push_back({.title = "Quit Larkspan", .action = [this] { stage_.quit(); }});
        menu.push_back({.title = "Kill Larkspan", .action = [this] { stage_.kill(); }});
    } else {
        menu.push_back({.title = "Start Larkspan", .action = [this] { stage_.start(); }});
    }
    return menu;
}

void DemoWindow::openMenu(const Menu& menu, const QRectF& anchor) {
    if (!menu_) menu_ = std::make_unique<MenuWindow>(views_, appearance_);
    menu_->open(menu, desktop_.mapRectToScene(anchor).translated(position()),
                QRectF(position(), size()), false);
}

std::unique_ptr<BarPanels> DemoWindow::makeBarPanels(AppController& controller) {
    return std::make_unique<DemoBarPanels>(controller.look(), views_, appearance_, desktop_,
                                           stage_.mac, time_ == Time::real);
}

void DemoWindow::play(sim::Scenario scenario) {
    runner_ = std::make_unique<sim::ScenarioRunner>(std::move(scenario), stage_);
    played_ = 0;
    toldFailures_ = 0;
    const auto title = QString::fromStdString(runner_->title());
    setTitle(title);
    runner_->onStep = [this, title](const sim::ScenarioStep& step) {
        const auto note = step.fields.value("note", std::string());
        if (!note.empty()) setTitle(QString("%1 — %2").arg(title, QString::fromStdString(note)));
    };
}

void DemoWindow::tellFailures() {
    const auto& failures = runner_->failures();
    for (; toldFailures_ < failures.size(); ++toldFailures_) {
        if (onFailure) onFailure(failures[toldFailures_]);
    }
}

void DemoWindow::tick() {
    const double passed = std::min(static_cast<double>(clock_.restart()) / 1000, longestTick);
    if (runner_ && !runner_->isOver()) {
        runner_->playTo(played_ += passed);
        tellFailures();
    } else {
        stage_.mac.scheduler.runFor(passed);
    }
    if (std::exchange(shownTurns_, stage_.mac.scheduler.turns()) != shownTurns_) showChanges();
}

void DemoWindow::showChanges() {
    const QSizeF extent = desktop_.extent();
    if (extent.isEmpty()) return;
    desktop_.setSize(extent);
    const double scale = std::min(width() / extent.width(), height() / extent.height());
    desktop_.setScale(scale);
    desktop_.setPosition({(width() - extent.width() * scale) / 2, 0});
    desktop_.update();
    dock_.refresh();
    privacy_.refresh();
}

QImage DemoWindow::picture() {
    const QSizeF extent = desktop_.extent();
    if (extent.isEmpty()) return {};
    const double scale = std::min(1.0, widestPicture / extent.width());
    resize((extent * scale).toSize());
    show();
    showChanges();
    QCoreApplication::processEvents();
    return grabWindow();
}

} // namespace larkspan::ui
