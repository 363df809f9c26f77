#include "adapters/x11/DesktopTest.h"

#include <future>

namespace larkspan::x11 {

using qt::runUntil;

/// Observers of windows that start on a queue, as for a real app that must be asked.
class ObserversTest : public OnManagedServer {
  protected:
    /// Returns before the main thread has run.
    Handle observeOnQueue(std::function<void()> callback) {
        std::promise<Handle> made;
        desktop.scheduler.queue("observers").post([&] {
            made.set_value(desktop.platform().accessibility.observe(
                desktop.element(window), "AXWindowMoved", std::move(callback)));
        });
        return made.get_future().get();
    }
    void moveWindow() {
        const Rect from = client.areaOf(window);
        client.move(window, static_cast<int>(from.x) + 40, static_cast<int>(from.y) + 40);
    }

    WindowId window = open();
};

TEST_F(ObserversTest, AreCalledOnTheMainThread) {
    bool isCalledOnMainThread = false;
    const Handle observer =
        observeOnQueue([&] { isCalledOnMainThread = desktop.scheduler.isMainThread(); });
    ASSERT_TRUE(observer);
    moveWindow();
    EXPECT_TRUE(runUntil([&] { return isCalledOnMainThread; }));
}

TEST_F(ObserversTest, MayEndBeforeTheyStart) {
    int calls = 0;
    Handle ended = observeOnQueue([&] { ++calls; });
    ended.reset();
    bool isOtherCalled = false;
    const Handle other = observeOnQueue([&] { isOtherCalled = true; });
    moveWindow();
    ASSERT_TRUE(runUntil([&] { return isOtherCalled; }));
    EXPECT_EQ(calls, 0);
}

} // namespace larkspan::x11
