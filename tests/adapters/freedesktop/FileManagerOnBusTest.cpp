#include "adapters/freedesktop/bus/FileManagerOnBus.h"

#include "adapters/freedesktop/PanelOnBus.h"
#include "adapters/qt/RunLoop.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace larkspan::freedesktop {
namespace {

/// A file manager that records what it has to show, or refuses.
class Manager : public QDBusVirtualObject {
  public:
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& bus) override {
        if (message.member() != "ShowItems") return false;
        for (const auto& address : message.arguments().value(0).toStringList())
            shown.push_back(address.toStdString());
        return bus.send(refuses ? message.createErrorReply(QDBusError::Failed, "no")
                                : message.createReply());
    }
    std::vector<std::string> shown;
    bool refuses = false;
};

class FileManagerOnBusTest : public testing::Test {
  protected:
    void TearDown() override { QDBusConnection::disconnectFromBus("a file manager"); }
    void startManager() {
        auto bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, "a file manager");
        bus.registerVirtualObject("/org/freedesktop/FileManager1", &manager);
        ASSERT_TRUE(bus.registerService("org.freedesktop.FileManager1"));
    }

    QCoreApplication& application = qt::testApplication();
    /// Starts the session bus.
    PanelOnBus panel;
    Manager manager;
    std::vector<std::string> opened;
    FileManagerOnBus files{[this](const std::string& folder) { opened.push_back(folder); }};
};

TEST_F(FileManagerOnBusTest, GetsTheUrlOfTheFile) {
    startManager();
    files.reveal("/tmp/a folder/50%.txt");
    ASSERT_TRUE(qt::runUntil([&] { return !manager.shown.empty(); }));
    EXPECT_THAT(manager.shown, testing::ElementsAre("file:///tmp/a%20folder/50%25.txt"));
    files.reveal("/tmp/b");
    ASSERT_TRUE(qt::runUntil([&] { return manager.shown.size() == 2; }));
    EXPECT_TRUE(opened.empty());
}

TEST_F(FileManagerOnBusTest, TheFolderIsOpenedWithoutAFileManagerOrIfItRefuses) {
    files.reveal("/tmp/a folder/50%.txt");
    ASSERT_TRUE(qt::runUntil([&] { return !opened.empty(); }));
    startManager();
    manager.refuses = true;
    files.reveal("/tmp/other/file");
    ASSERT_TRUE(qt::runUntil([&] { return opened.size() == 2; }));
    EXPECT_THAT(opened, testing::ElementsAre("/tmp/a folder", "/tmp/other"));
}

} // namespace
} // namespace larkspan::freedesktop
