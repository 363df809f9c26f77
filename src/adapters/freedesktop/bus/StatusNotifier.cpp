#include "adapters/freedesktop/bus/StatusNotifier.h"

#include "adapters/freedesktop/bus/DBusMenu.h"
#include "adapters/freedesktop/bus/StatusNotifierItem.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusServiceWatcher>

#include <memory>
#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr const char* watcherService = "org.kde.StatusNotifierWatcher";
constexpr const char* wayBack = "start larkspan again to show the bar";

/// One item on its own connection to the bus, so that it vanishes with the connection.
class ShownItem {
  public:
    explicit ShownItem(const StatusItem& item)
        : connection_(QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName))
        , item_(item)
        , menu_(item.menu) {
        if (!connection_.isConnected()) return;
        connection_.registerVirtualObject(StatusNotifierItem::path, &item_);
        connection_.registerVirtualObject(StatusNotifierItem::menuPath, &menu_);
        watcher_.setConnection(connection_);
        watcher_.addWatchedService(watcherService);
        watcher_.setWatchMode(QDBusServiceWatcher::WatchForRegistration);
        // A panel that starts later, or again, gets the item then.
        QObject::connect(&watcher_, &QDBusServiceWatcher::serviceRegistered, &watcher_,
                         [this] { announce(); });
        announce();
    }
    ~ShownItem() {
        connection_.unregisterObject(StatusNotifierItem::path);
        connection_.unregisterObject(StatusNotifierItem::menuPath);
        QDBusConnection::disconnectFromBus(connectionName);
    }
    ShownItem(const ShownItem&) = delete;
    ShownItem& operator=(const ShownItem&) = delete;

    bool hasBus() const { return connection_.isConnected(); }
    bool hasPanel() const { return connection_.interface()->isServiceRegistered(watcherService); }

  private:
    static constexpr const char* connectionName = "larkspan status item";

    void announce() {
        auto call = QDBusMessage::createMethodCall(watcherService, "/StatusNotifierWatcher",
                                                   watcherService, "RegisterStatusNotifierItem");
        call << connection_.baseService();
        // No service has to be started for it, and the reply is not used.
        call.setAutoStartService(false);
        connection_.send(call);
    }

    QDBusConnection connection_;
    StatusNotifierItem item_;
    DBusMenu menu_;
    QDBusServiceWatcher watcher_;
};

} // namespace

StatusNotifier::StatusNotifier(std::function<void(const std::string&)> report)
    : report_(std::move(report)) {}

Handle StatusNotifier::show(StatusItem item) {
    auto shown = std::make_shared<ShownItem>(item);
    if (!shown->hasBus()) {
        report_(std::string("there is no session bus, so the status icon cannot be shown; ") +
                wayBack);
        return {};
    }
    if (!shown->hasPanel())
        report_(std::string("no panel shows status icons at the moment; ") + wayBack);
    return Handle([shown]() mutable { shown.reset(); });
}

} // namespace larkspan::freedesktop
