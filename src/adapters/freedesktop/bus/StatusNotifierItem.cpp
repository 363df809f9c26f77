#include "adapters/freedesktop/bus/StatusNotifierItem.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QImage>
#include <QPainter>
#include <QtEndian>

namespace larkspan::freedesktop {

namespace {

/// An image as sent over the bus: 0xAARRGGBB, the most significant byte first.
struct Pixmap {
    int width = 0;
    int height = 0;
    QByteArray bytes;
};

QDBusArgument& operator<<(QDBusArgument& argument, const Pixmap& pixmap) {
    argument.beginStructure();
    argument << pixmap.width << pixmap.height << pixmap.bytes;
    argument.endStructure();
    return argument;
}

// Only ever sent, but Qt needs both operators to register a type.
const QDBusArgument& operator>>(const QDBusArgument& argument, Pixmap&) {
    return argument;
}

constexpr const char* itemInterface = R"xml(<interface name="org.kde.StatusNotifierItem">
  <property name="Category" type="s" access="read"/>
  <property name="Id" type="s" access="read"/>
  <property name="Title" type="s" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="IconName" type="s" access="read"/>
  <property name="IconPixmap" type="a(iiay)" access="read"/>
  <property name="ItemIsMenu" type="b" access="read"/>
  <property name="Menu" type="o" access="read"/>
</interface>)xml";

/// A screen with a bar at its bottom, light with a dark outline, since panels have any colour.
QImage picture(int side) {
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(side / 22.0, side / 22.0);
    const QColor light(0xee, 0xf0, 0xf3);
    for (const auto& pen : {QPen(QColor(0, 0, 0, 110), 3), QPen(light, 1.5)}) {
        painter.setPen(pen);
        painter.drawRoundedRect(QRectF(3, 4, 16, 14), 3, 3);
    }
    painter.setPen(Qt::NoPen);
    painter.setBrush(light);
    painter.drawRoundedRect(QRectF(6, 13, 10, 2.5), 1, 1);
    painter.end();
    return image;
}

Pixmap pixmap(int side) {
    const QImage image = picture(side);
    const auto count = static_cast<qsizetype>(side) * side;
    QByteArray bytes(count * 4, Qt::Uninitialized);
    qToBigEndian<quint32>(image.constBits(), count, bytes.data());
    return {side, side, bytes};
}

} // namespace

StatusNotifierItem::StatusNotifierItem(const StatusItem& item) {
    qDBusRegisterMetaType<Pixmap>();
    qDBusRegisterMetaType<QList<Pixmap>>();
    properties_ = {
        {"Category", "ApplicationStatus"},
        {"Id", "larkspan"},
        {"Title", QString::fromStdString(item.accessibilityDescription)},
        {"Status", "Active"},
        // No icon theme has the system symbol; the image is used instead.
        {"IconName", ""},
        {"IconPixmap", QVariant::fromValue(QList<Pixmap>{pixmap(22), pixmap(44)})},
        {"ItemIsMenu", true},
        {"Menu", QVariant::fromValue(QDBusObjectPath(menuPath))},
    };
}

QString StatusNotifierItem::introspect(const QString&) const {
    return QString::fromUtf8(itemInterface);
}

// The item has no method for a click: panels show the menu if there is none.
bool StatusNotifierItem::handleMessage(const QDBusMessage& message,
                                       const QDBusConnection& connection) {
    if (message.member() == "GetAll") return connection.send(message.createReply(properties_));
    if (message.member() != "Get") return false;
    const QVariant value = properties_.value(message.arguments().value(1).toString());
    return value.isValid() &&
           connection.send(message.createReply(QVariant::fromValue(QDBusVariant(value))));
}

} // namespace larkspan::freedesktop
