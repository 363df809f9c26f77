#include "adapters/x11/DesktopTest.h"

#include <future>

namespace larkspan::x11 {

using qt::runUntil;

class ClientPingTest : public OnManagedServer {
  protected:
    ClientPingTest() { ax().setMessagingTimeout(ax().createSystemWide(), 0.3F); }
    Accessibility& ax() { return desktop.platform().accessibility; }
    /// Opens a window of the only application here, and returns its process.
    ProcessId openIn(TestClient& its, bool supportsPings) {
        return owner(desktop.open(its, {.className = "Asked", .supportsPings = supportsPings}));
    }
    AXError windowsOf(ProcessId pid) {
        return ax().attribute(ax().createApplication(pid), "AXWindows").error;
    }
    /// Pings on a queue while `answering` handles its events.
    AXError askWhile(ProcessId pid, TestClient* answering) {
        std::promise<AXError> promise;
        auto answer = promise.get_future();
        desktop.scheduler.queue("asks").post([&] { promise.set_value(windowsOf(pid)); });
        runUntil([&] {
            if (answering) pings += answering->replyToPings();
            return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
        });
        return answer.get();
    }

    TestClient other{ManagedServer::display()};
    int pings = 0;
};

TEST_F(ClientPingTest, TheMainThreadNeverPings) {
    const auto pid = openIn(client, true);
    const double before = desktop.scheduler.uptime();
    EXPECT_EQ(windowsOf(pid), AXError::success);
    EXPECT_LT(desktop.scheduler.uptime() - before, 0.29);
    client.sync();
    EXPECT_EQ(client.replyToPings(), 0);
}

TEST_F(ClientPingTest, AnAppRespondsIfAnyOfItsProcessesDoes) {
    const auto pid = openIn(client, true);
    ASSERT_EQ(openIn(other, true), pid);
    EXPECT_EQ(askWhile(pid, &other), AXError::success);
    EXPECT_EQ(pings, 1) << "each window is pinged once";
    EXPECT_EQ(askWhile(pid, nullptr), AXError::cannotComplete);
}

TEST_F(ClientPingTest, AppsWithoutPingSupportNeverHang) {
    const auto pid = openIn(client, false);
    EXPECT_EQ(askWhile(pid, nullptr), AXError::success);
    openIn(other, true);
    EXPECT_EQ(askWhile(pid, nullptr), AXError::success);
}

} // namespace larkspan::x11
