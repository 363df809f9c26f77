#pragma once

#include "scenario/ScenarioRunner.h"
#include "scenario/Stage.h"
#include "ui/demo/DemoDesktop.h"
#include "ui/demo/DemoDock.h"
#include "ui/demo/DemoPermissions.h"
#include "ui/demo/DemoPrivacy.h"
#include "ui/menu/MenuWindow.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/Views.h"

#include <QElapsedTimer>
#include <QImage>
#include <QQuickWindow>
#include <QTimer>

#include <functional>
#include <memory>
#include <string>

namespace larkspan::ui {

/// A simulated Mac in a window, with the bar on it. Main thread only.
class DemoWindow : public QQuickWindow {
    Q_OBJECT

  public:
    enum class Time {
        /// The Mac's time goes with the real one, and the Mac can be used.
        real,
        /// Time passes only as the stage is told; the window serves to take pictures.
        virtualOnly,
    };
    explicit DemoWindow(Time time);
    ~DemoWindow() override;

    sim::Stage& stage() { return stage_; }
    /// Plays the scenario beside the real clock. The title bar says what is going on.
    void play(sim::Scenario scenario);
    /// Hears what was not as expected, as soon as it shows.
    std::function<void(const std::string&)> onFailure;
    /// The whole Mac as it looks now.
    QImage picture();

  private:
    std::unique_ptr<BarPanels> makeBarPanels(AppController& controller);
    void tick();
    void tellFailures();
    Menu systemMenu();
    void openMenu(const Menu& menu, const QRectF& anchor);
    /// Fits the Mac into the window and draws it again.
    void showChanges();

    Time time_;
    Views views_;
    Appearance appearance_;
    sim::Stage stage_;
    DemoDesktop desktop_;
    DemoDock dock_;
    DemoPrivacy privacy_;
    /// Present while the program runs.
    std::unique_ptr<DemoPermissions> permissions_;
    std::unique_ptr<MenuWindow> menu_;
    std::unique_ptr<sim::ScenarioRunner> runner_;
    QTimer timer_;
    QElapsedTimer clock_;
    double played_ = 0;
    std::size_t toldFailures_ = 0;
    std::uint64_t shownTurns_ = 0;
};

} // namespace larkspan::ui
