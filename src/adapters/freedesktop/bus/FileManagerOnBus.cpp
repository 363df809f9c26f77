#include "adapters/freedesktop/bus/FileManagerOnBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QStringList>
#include <QUrl>

#include <filesystem>
#include <utility>

namespace larkspan::freedesktop {

namespace {

constexpr const char* service = "org.freedesktop.FileManager1";
/// Long enough for a file manager that has to be started first.
constexpr int limitMilliseconds = 5000;

QDBusMessage showItems(const std::string& path) {
    auto call = QDBusMessage::createMethodCall(service, "/org/freedesktop/FileManager1", service,
                                               "ShowItems");
    const auto address = QUrl::fromLocalFile(QString::fromStdString(path));
    // With an empty startup identifier, since we have none.
    call << QStringList{QString::fromLatin1(address.toEncoded())} << QString();
    return call;
}

} // namespace

FileManagerOnBus::FileManagerOnBus(std::function<void(const std::string& folder)> openFolder)
    : openFolder_(std::move(openFolder)) {}

void FileManagerOnBus::reveal(const std::string& path) {
    const auto folder = std::filesystem::path(path).parent_path().string();
    const auto bus =
        QDBusConnection::connectToBus(QDBusConnection::SessionBus, "larkspan file manager");
    if (!bus.isConnected()) {
        openFolder_(folder);
        return;
    }
    auto* answer =
        new QDBusPendingCallWatcher(bus.asyncCall(showItems(path), limitMilliseconds), &waiting_);
    QObject::connect(answer, &QDBusPendingCallWatcher::finished, &waiting_, [this, answer, folder] {
        answer->deleteLater();
        if (answer->isError()) openFolder_(folder);
    });
}

} // namespace larkspan::freedesktop
