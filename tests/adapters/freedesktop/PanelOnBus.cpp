#include "adapters/freedesktop/PanelOnBus.h"

#include "adapters/freedesktop/bus/StatusNotifierItem.h"
#include "adapters/qt/RunLoop.h"

#include <QDBusArgument>
#include <QDBusPendingCall>
#include <QDBusVariant>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

namespace larkspan::freedesktop {

namespace {

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr const char* menuInterface = "com.canonical.dbusmenu";
/// More than any menu has here.
constexpr int mostLines = 20;

/// A bus daemon that lives as long as the test program.
class SessionBus {
  public:
    SessionBus() {
        FILE* daemon = popen("dbus-daemon --session --fork --print-address=1 --print-pid=1", "r");
        std::array<char, 512> line{};
        if (std::fgets(line.data(), line.size(), daemon) != nullptr) {
            std::string address = line.data();
            address.erase(address.find('\n'));
            setenv("DBUS_SESSION_BUS_ADDRESS", address.c_str(), 1);
        }
        if (std::fgets(line.data(), line.size(), daemon) != nullptr) pid_ = std::atoi(line.data());
        pclose(daemon);
        if (pid_ <= 0) throw std::runtime_error("the package dbus-daemon is needed");
    }
    ~SessionBus() { kill(pid_, SIGTERM); }
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

  private:
    int pid_ = 0;
};

QDBusConnection connectPanel() {
    qt::testApplication();
    static const SessionBus bus;
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, "a panel");
}

QString textOf(const QDBusMessage& reply) {
    return qdbus_cast<QDBusVariant>(reply.arguments().value(0)).variant().toString();
}

} // namespace

bool PanelOnBus::Watcher::handleMessage(const QDBusMessage& message,
                                        const QDBusConnection& connection) {
    if (message.member() != "RegisterStatusNotifierItem") return false;
    registered.push_back(message.arguments().value(0).toString());
    return connection.send(message.createReply());
}

PanelOnBus::PanelOnBus()
    : bus_(connectPanel()) {
    bus_.registerVirtualObject("/StatusNotifierWatcher", &watcher_);
}

PanelOnBus::~PanelOnBus() {
    bus_.unregisterService(watcherName);
    bus_.unregisterObject("/StatusNotifierWatcher");
}

void PanelOnBus::appear() {
    bus_.registerService(watcherName);
}

std::vector<std::string> PanelOnBus::shown() {
    std::vector<std::string> titles;
    for (const auto& service : watcher_.registered)
        if (const auto text = title(service); !text.isEmpty()) titles.push_back(text.toStdString());
    return titles;
}

QString PanelOnBus::title(const QString& service) {
    const auto reply = call(service, StatusNotifierItem::path, propertiesInterface, "Get",
                            {"org.kde.StatusNotifierItem", "Title"});
    return reply.type() == QDBusMessage::ErrorMessage ? QString() : textOf(reply);
}

QString PanelOnBus::label(int line) {
    return textOf(
        call(StatusNotifierItem::menuPath, menuInterface, "GetProperty", {line, "label"}));
}

void PanelOnBus::click(int line) {
    call(StatusNotifierItem::menuPath, menuInterface, "Event",
         {line, "clicked", QVariant::fromValue(QDBusVariant(0)), 0u});
}

bool PanelOnBus::choose(const std::string& label) {
    for (int line = 1; line <= mostLines; ++line) {
        if (this->label(line).toStdString() != label) continue;
        click(line);
        return true;
    }
    return false;
}

QDBusMessage PanelOnBus::call(const QString& path, const QString& interface, const QString& member,
                              const QVariantList& arguments) {
    return call(watcher_.registered.back(), path, interface, member, arguments);
}

QDBusMessage PanelOnBus::call(const QString& service, const QString& path, const QString& interface,
                              const QString& member, const QVariantList& arguments) {
    auto message = QDBusMessage::createMethodCall(service, path, interface, member);
    message.setArguments(arguments);
    const auto pending = bus_.asyncCall(message, 3000);
    qt::runUntil([&] { return pending.isFinished(); });
    return pending.reply();
}

} // namespace larkspan::freedesktop
