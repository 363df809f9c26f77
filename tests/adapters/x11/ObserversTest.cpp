#include "adapters/x11/DesktopTest.h"

#include <future>

namespace larkspan::x11 {

using qt::runUntil;

/// Observers of windows that start on a queue, as for a real app that must be asked.
class ObserversTest : public testing::Test {
  protected:
    ObserversTest() {
        EXPECT_TRUE(runUntil([&] { return desktop.isOnScreen(window); }));
    }

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

    DesktopUnderTest desktop{ManagedServer::display()};
    TestClient client{ManagedServer::display()};
    WindowId window = client.open({});
};

TEST_F(ObserversTest, AreCalledOnTheMainThread) {
    bool isToldOnMainThread = false;
    const Handle observer =
        observeOnQueue([&] { isToldOnMainThread = desktop.scheduler.isMainThread(); });
    ASSERT_TRUE(observer);
    moveWindow();
    EXPECT_TRUE(runUntil([&] { return isToldOnMainThread; }));
}

TEST_F(ObserversTest, MayEndBeforeTheyStart) {
    int told = 0;
    Handle ended = observeOnQueue([&] { ++told; });
    ended.reset();
    bool isOtherTold = false;
    const Handle other = observeOnQueue([&] { isOtherTold = true; });
    moveWindow();
    ASSERT_TRUE(runUntil([&] { return isOtherTold; }));
    EXPECT_EQ(told, 0);
}

} // namespace larkspan::x11
