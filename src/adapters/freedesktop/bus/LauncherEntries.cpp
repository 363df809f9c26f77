#include "adapters/freedesktop/bus/LauncherEntries.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusServiceWatcher>

#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr const char* connectionName = "larkspan launcher entries";
constexpr const char* interfaceName = "com.canonical.Unity.LauncherEntry";
/// Applications look for this name, and send updates only if somebody owns it.
constexpr const char* listenerName = "com.canonical.Unity";

} // namespace

struct LauncherEntries::Bus {
    Bus() = default;
    ~Bus() { QDBusConnection::disconnectFromBus(connectionName); }
    Bus(const Bus&) = delete;
    Bus& operator=(const Bus&) = delete;

    QDBusConnection connection =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, connectionName);
    QDBusServiceWatcher watcher;
};

LauncherEntries::LauncherEntries(std::function<void()> changed)
    : changed_(std::move(changed)) {}

LauncherEntries::~LauncherEntries() = default;

void LauncherEntries::listen() {
    bus_ = std::make_unique<Bus>();
    auto& connection = bus_->connection;
    if (!connection.isConnected()) return;
    bus_->watcher.setConnection(connection);
    bus_->watcher.setWatchMode(QDBusServiceWatcher::WatchForUnregistration);
    connect(&bus_->watcher, &QDBusServiceWatcher::serviceUnregistered, this,
            &LauncherEntries::senderLeft);
    connection.connect({}, {}, interfaceName, "Update", this,
                       SLOT(update(QString, QVariantMap, QDBusMessage)));
    // Queued if another panel owns the name; the signals are broadcast anyway. The reply is not
    // waited for.
    auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                  "org.freedesktop.DBus", "RequestName");
    request << QString(listenerName) << 0U;
    connection.send(request);
}

void LauncherEntries::update(const QString& address, const QVariantMap& properties,
                             const QDBusMessage& message) {
    const std::string id = entryOfAddress(address.toStdString());
    if (id.empty()) return;
    senders_[id] = message.service();
    bus_->watcher.addWatchedService(message.service());
    const auto found = entries_.find(id);
    const LauncherEntry before = found == entries_.end() ? LauncherEntry{} : found->second;
    // An update without a known property, such as one with progress only, changes nothing.
    const auto after = updatedEntry(before, properties);
    if (after == before) return;
    entries_[id] = after;
    changed_();
}

void LauncherEntries::senderLeft(const QString& sender) {
    bus_->watcher.removeWatchedService(sender);
    bool isChanged = false;
    std::erase_if(senders_, [&](const auto& entry) {
        if (entry.second != sender) return false;
        isChanged = entries_.erase(entry.first) > 0 || isChanged;
        return true;
    });
    if (isChanged) changed_();
}

LauncherEntry updatedEntry(LauncherEntry entry, const QVariantMap& properties) {
    const auto take = [&](const char* name, auto read) {
        const auto found = properties.find(name);
        if (found != properties.end()) read(*found);
    };
    take("count", [&](const QVariant& value) { entry.count = value.toLongLong(); });
    take("count-visible", [&](const QVariant& value) { entry.showsCount = value.toBool(); });
    take("urgent", [&](const QVariant& value) { entry.isUrgent = value.toBool(); });
    return entry;
}

std::string entryOfAddress(std::string_view address) {
    constexpr std::string_view scheme = "application://";
    constexpr std::string_view ending = ".desktop";
    if (!address.starts_with(scheme) || !address.ends_with(ending)) return {};
    address.remove_prefix(scheme.size());
    if (address.size() <= ending.size()) return {};
    return std::string(address.substr(0, address.size() - ending.size()));
}

} // namespace larkspan::freedesktop
