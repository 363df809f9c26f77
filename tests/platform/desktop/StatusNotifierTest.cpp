#include "platform/x11/StatusNotifier.h"

#include "platform/qt/RunLoop.h"
#include "platform/x11/StatusItemOnBus.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusVariant>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace larkspan::x11 {
namespace {

/// The watcher a panel runs: takes note of the items that register.
class PanelOnBus : public QDBusVirtualObject {
  public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override {
        if (message.member() != "RegisterStatusNotifierItem") return false;
        registered.push_back(message.arguments().value(0).toString());
        return connection.send(message.createReply());
    }
    std::vector<QString> registered;
};

/// A session bus of the test's own.
class StatusNotifierTest : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        qt::testApplication();
        FILE* daemon = popen("dbus-daemon --session --fork --print-address=1 --print-pid=1", "r");
        std::array<char, 512> line{};
        if (fgets(line.data(), line.size(), daemon) != nullptr) {
            std::string address = line.data();
            address.erase(address.find('\n'));
            setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        }
        if (fgets(line.data(), line.size(), daemon) != nullptr) daemonPid_ = std::atoi(line.data());
        pclose(daemon);
    }
    static void TearDownTestSuite() {
        if (daemonPid_ > 0) kill(daemonPid_, SIGTERM);
    }
    void SetUp() override { ASSERT_GT(daemonPid_, 0) << "the package dbus-daemon is needed"; }

    StatusItem item() {
        MenuItem use{.title = "Use_it", .action = [this] {
                         ++uses_;
                         shown_.reset();
                     }};
        MenuItem off{.title = "Off", .isEnabled = false, .action = [this] { ++uses_; }};
        return {"dock.rectangle", "Larkspan", {use, MenuItem::separator(), off}};
    }
    QDBusMessage call(const QString& service, const QString& path, const QString& interface,
                      const QString& member, const QVariantList& arguments) {
        auto message = QDBusMessage::createMethodCall(service, path, interface, member);
        message.setArguments(arguments);
        const auto pending = panelBus_.asyncCall(message, 3000);
        qt::runUntil([&] { return pending.isFinished(); });
        return pending.reply();
    }
    void click(const QString& service, int id) {
        call(service, StatusItemOnBus::menuPath, "com.canonical.dbusmenu", "Event",
             {id, "clicked", QVariant::fromValue(QDBusVariant(0)), 0u});
    }

    static inline int daemonPid_ = 0;
    QDBusConnection panelBus_ =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, "a panel");
    std::vector<std::string> reports_;
    StatusNotifier notifier_{[this](const std::string& line) { reports_.push_back(line); }};
    int uses_ = 0;
    Handle shown_;
};

TEST_F(StatusNotifierTest, ItemIsThereForAPanelThatComesLaterAndItsMenuWorks) {
    shown_ = notifier_.show(item());
    EXPECT_THAT(reports_, testing::ElementsAre(testing::HasSubstr("starting larkspan again")));

    PanelOnBus panel;
    panelBus_.registerVirtualObject("/StatusNotifierWatcher", &panel);
    panelBus_.registerService("org.kde.StatusNotifierWatcher");
    ASSERT_TRUE(qt::runUntil([&] { return !panel.registered.empty(); }));
    const QString service = panel.registered.front();

    const auto title = call(service, StatusItemOnBus::path, "org.freedesktop.DBus.Properties",
                            "Get", {"org.kde.StatusNotifierItem", "Title"});
    EXPECT_EQ(qdbus_cast<QDBusVariant>(title.arguments().value(0)).variant(), "Larkspan");
    const auto label = [&](int id) {
        const auto reply = call(service, StatusItemOnBus::menuPath, "com.canonical.dbusmenu",
                                "GetProperty", {id, "label"});
        return qdbus_cast<QDBusVariant>(reply.arguments().value(0)).variant().toString();
    };
    EXPECT_EQ(label(1), "Use__it") << "one underscore would be an access key";
    EXPECT_EQ(label(9), "");
    const auto layout = call(service, StatusItemOnBus::menuPath, "com.canonical.dbusmenu",
                             "GetLayout", {0, -1, QStringList()});
    EXPECT_EQ(layout.signature(), "u(ia{sv}av)");

    click(service, 3);
    click(service, 7);
    EXPECT_EQ(uses_, 0) << "a disabled item and one that does not exist";
    click(service, 1);
    ASSERT_TRUE(qt::runUntil([&] { return uses_ == 1; }));
    const auto gone = call(service, StatusItemOnBus::path, "org.freedesktop.DBus.Properties", "Get",
                           {"org.kde.StatusNotifierItem", "Title"});
    EXPECT_EQ(gone.type(), QDBusMessage::ErrorMessage) << "its own action took it away";
    panelBus_.unregisterService("org.kde.StatusNotifierWatcher");
}

} // namespace
} // namespace larkspan::x11
