#include "dock/DockFitting.h"

#include "adapters/sim/VirtualScheduler.h"
#include "dock/FixedScreens.h"
#include "platform/CoreDock.h"

#include <gmock/gmock.h>

#include <cmath>

namespace larkspan {
namespace {

using testing::ElementsAre;

/// Strip heights by icon size in pixels.
using Strip = std::function<double(double pixels)>;

double pixelsOf(float fraction) {
    return std::round(double{fraction} * 112 + 16 - 0.25);
}

/// A Dock whose strip follows its icon size at once, by the strip function.
class FittedDock : public CoreDock {
  public:
    explicit FittedDock(Strip strip)
        : strip_(std::move(strip)) {}

    bool has(CoreDockFunction) const override { return true; }
    float tileSize() const override { return 0.3F; }
    bool isAutoHideEnabled() const override { return false; }
    void setAutoHideEnabled(bool) override {}
    OrientationAndPinning orientationAndPinning() const override { return {}; }
    void setOrientationAndPinning(OrientationAndPinning) override {}
    bool isMagnificationEnabled() const override { return false; }
    void setMagnificationEnabled(bool) override {}
    void sendNotification(std::string_view) override {}
    void setTileSize(float fraction) override {
        sizes.push_back(pixelsOf(fraction));
        screens.list.clear();
        screens.add(1, {0, 0, 1440, 900}, strip_(sizes.back()));
    }

    FixedScreens screens;
    std::vector<double> sizes;

  private:
    Strip strip_;
};

struct FitCase {
    const char* name;
    Strip strip;
    /// Every call, in pixels.
    std::vector<double> calls;
    double finishesWith;
};

TEST(DockFitting, CorrectsUntilTheStripFitsOrNothingHelps) {
    const FitCase cases[] = {
        {"a point lower fits", [](double) { return 35.0; }, {16, 16}, 16},
        {"as high as the bar fits", [](double) { return 36.0; }, {16, 16}, 16},
        {"two points lower grows by two",
         [](double pixels) { return pixels + 18; },
         {16, 16, 18, 18},
         18},
        {"a point higher shrinks by one",
         [](double pixels) { return pixels + 21; },
         {16, 16, 15, 15},
         15},
        {"a hair higher shrinks by one",
         [](double pixels) { return pixels == 16 ? 36.3 : 35.5; },
         {16, 16, 15, 15},
         15},
        {"no strip anywhere ends at once", [](double) { return 0.0; }, {16, 16}, 16},
        {"a Dock that grows no further goes back to its last growth",
         [](double pixels) { return pixels >= 18 ? 30.0 : 20.0; },
         {16, 16, 32, 32, 38, 38, 32, 32},
         32},
        {"after four corrections it stops, and leaves the fifth alone",
         [](double pixels) { return 46 + pixels; },
         {16, 16, 1, 1, 1, 1, 1, 1, 1, 1},
         1},
    };
    for (const auto& [name, strip, calls, finishesWith] : cases) {
        sim::VirtualScheduler scheduler;
        FittedDock dock(strip);
        std::optional<float> result;
        const DockFitting fitting(scheduler, dock, dock.screens, 36,
                                  [&](float fraction) { result = fraction; });
        scheduler.runFor(60);
        EXPECT_EQ(dock.sizes, calls) << name;
        ASSERT_TRUE(result) << name;
        EXPECT_EQ(pixelsOf(*result), finishesWith) << name;
        EXPECT_EQ(scheduler.timerCount(), 0U) << name;
    }
}

TEST(DockFitting, WaitsForTheDockBeforeItMeasures) {
    sim::VirtualScheduler scheduler;
    FittedDock dock([](double pixels) { return pixels + 18; });
    const DockFitting fitting(scheduler, dock, dock.screens, 36, [](float) {});
    scheduler.runFor(0.69);
    EXPECT_THAT(dock.sizes, ElementsAre(16, 16));
    scheduler.runFor(0.02);
    EXPECT_THAT(dock.sizes, ElementsAre(16, 16, 18, 18));
}

TEST(DockFitting, CancelledItReportsNothing) {
    sim::VirtualScheduler scheduler;
    FittedDock dock([](double pixels) { return pixels + 18; });
    bool isReported = false;
    {
        const DockFitting fitting(scheduler, dock, dock.screens, 36,
                                  [&](float) { isReported = true; });
        scheduler.runFor(0.7);
    }
    scheduler.runFor(60);
    EXPECT_FALSE(isReported);
    EXPECT_EQ(dock.sizes.size(), 4U);
}

TEST(DockFitting, MayBeDestroyedByWhatItReportsTo) {
    sim::VirtualScheduler scheduler;
    FittedDock dock([](double) { return 36.0; });
    std::unique_ptr<DockFitting> fitting;
    fitting = std::make_unique<DockFitting>(scheduler, dock, dock.screens, 36,
                                            [&](float) { fitting.reset(); });
    scheduler.runFor(1);
    EXPECT_EQ(fitting, nullptr);
}

} // namespace
} // namespace larkspan
