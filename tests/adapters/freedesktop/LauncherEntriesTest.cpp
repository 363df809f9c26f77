#include "adapters/freedesktop/bus/LauncherEntries.h"

#include "adapters/freedesktop/PanelOnBus.h"
#include "adapters/qt/RunLoop.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>

#include <gtest/gtest.h>

namespace larkspan::freedesktop {
namespace {

class LauncherEntriesTest : public testing::Test {
  protected:
    LauncherEntriesTest() { entries_.listen(); }
    ~LauncherEntriesTest() override { QDBusConnection::disconnectFromBus("an app"); }

    /// Sends the update as soon as somebody shows counts, as apps do.
    void say(const QString& address, const QVariantMap& properties) {
        auto app = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "an app");
        ASSERT_TRUE(qt::runUntil(
            [&] { return app.interface()->isServiceRegistered("com.canonical.Unity").value(); }));
        auto signal = QDBusMessage::createSignal("/com/example/App",
                                                 "com.canonical.Unity.LauncherEntry", "Update");
        signal << address << properties;
        app.send(signal);
    }
    LauncherEntry mail() {
        const auto found = entries_.entries().find("mail");
        return found == entries_.entries().end() ? LauncherEntry{} : found->second;
    }

    /// Starts the session bus.
    PanelOnBus panel_;
    int changes_ = 0;
    LauncherEntries entries_{[this] { ++changes_; }};
};

TEST_F(LauncherEntriesTest, AnUpdateIsValidUntilTheAppLeaves) {
    say("application://mail.desktop", {{"count", 5LL}, {"count-visible", true}});
    ASSERT_TRUE(qt::runUntil([&] { return mail().count == 5; }));
    say("application://mail.desktop", {{"urgent", true}});
    ASSERT_TRUE(qt::runUntil([&] { return mail().isUrgent; }));
    EXPECT_EQ(mail(), (LauncherEntry{5, true, true})) << "only the update's own properties change";
    QDBusConnection::disconnectFromBus("an app");
    EXPECT_TRUE(qt::runUntil([&] { return entries_.entries().empty(); }));
    EXPECT_EQ(changes_, 3);
}

TEST_F(LauncherEntriesTest, UnknownPropertiesAreIgnored) {
    say("application://mail.desktop", {{"progress", 0.5}, {"progress-visible", true}});
    say("nonsense", {{"count", 5LL}, {"count-visible", true}});
    say("application://mail.desktop", {{"count", 1LL}});
    ASSERT_TRUE(qt::runUntil([&] { return mail().count == 1; }));
    EXPECT_EQ(changes_, 1);
    EXPECT_EQ(entries_.entries().size(), 1U);
}

TEST(LauncherEntry, ReadsKnownProperties) {
    const LauncherEntry before{3, true, false};
    EXPECT_EQ(updatedEntry(before, {}), before);
    EXPECT_EQ(updatedEntry(before, {{"count", 7U}}), (LauncherEntry{7, true, false}));
    EXPECT_EQ(updatedEntry(before, {{"count-visible", false}}), (LauncherEntry{3, false, false}));
    EXPECT_EQ(updatedEntry(before, {{"count", QVariantList()}}), (LauncherEntry{0, true, false}));
}

TEST(LauncherEntry, IsNamedByItsUrl) {
    EXPECT_EQ(entryOfAddress("application://org.example.Mail.desktop"), "org.example.Mail");
    for (const auto* address : {"", "application://", "application://.desktop", "mail.desktop",
                                "file:///mail.desktop", "application://mail"})
        EXPECT_EQ(entryOfAddress(address), "") << address;
}

} // namespace
} // namespace larkspan::freedesktop
