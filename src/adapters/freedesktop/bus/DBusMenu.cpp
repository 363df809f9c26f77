#include "adapters/freedesktop/bus/DBusMenu.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusVariant>

#include <utility>

namespace larkspan::freedesktop {

namespace {

/// The properties of one item, as sent in a list of several items'.
struct ItemProperties {
    int id = 0;
    QVariantMap properties;
};

QDBusArgument& operator<<(QDBusArgument& argument, const ItemProperties& item) {
    argument.beginStructure();
    argument << item.id << item.properties;
    argument.endStructure();
    return argument;
}

// Only ever sent, but Qt needs both operators to register a type.
const QDBusArgument& operator>>(const QDBusArgument& argument, ItemProperties&) {
    return argument;
}

constexpr int root = 0;
constexpr uint revision = 1;
constexpr const char* menuInterface = R"xml(<interface name="com.canonical.dbusmenu">
  <property name="Version" type="u" access="read"/>
  <property name="Status" type="s" access="read"/>
  <property name="TextDirection" type="s" access="read"/>
  <method name="GetLayout"><arg type="i" direction="in"/><arg type="i" direction="in"/>
    <arg type="as" direction="in"/><arg type="u" direction="out"/>
    <arg type="(ia{sv}av)" direction="out"/></method>
  <method name="GetGroupProperties"><arg type="ai" direction="in"/><arg type="as" direction="in"/>
    <arg type="a(ia{sv})" direction="out"/></method>
  <method name="GetProperty"><arg type="i" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="out"/></method>
  <method name="Event"><arg type="i" direction="in"/><arg type="s" direction="in"/>
    <arg type="v" direction="in"/><arg type="u" direction="in"/></method>
  <method name="AboutToShow"><arg type="i" direction="in"/><arg type="b" direction="out"/></method>
</interface>)xml";

/// Escapes underscores, which would mark access keys.
QString label(const std::string& title) {
    return QString::fromStdString(title).replace('_', QStringLiteral("__"));
}

QVariantMap objectProperties() {
    return {{"Version", 3u}, {"Status", "normal"}, {"TextDirection", "ltr"}};
}

} // namespace

QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout) {
    argument.beginStructure();
    argument << layout.id << layout.properties;
    argument.beginArray(QMetaType::fromType<QDBusVariant>());
    for (const auto& child : layout.children)
        argument << QDBusVariant(child);
    argument.endArray();
    argument.endStructure();
    return argument;
}

// Only ever sent, but Qt needs both operators to register a type.
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout&) {
    return argument;
}

DBusMenu::DBusMenu(const Menu& menu) {
    qDBusRegisterMetaType<MenuLayout>();
    qDBusRegisterMetaType<ItemProperties>();
    qDBusRegisterMetaType<QList<ItemProperties>>();
    nodes_.emplace_back();
    add(root, menu);
}

void DBusMenu::add(int parent, const Menu& menu) {
    for (const MenuItem& item : menu) {
        const int id = static_cast<int>(nodes_.size());
        nodes_.push_back({item, {}});
        nodes_[static_cast<std::size_t>(parent)].children.push_back(id);
        add(id, item.submenu);
    }
}

bool DBusMenu::isKnown(int id) const {
    return id >= 0 && static_cast<std::size_t>(id) < nodes_.size();
}

QVariantMap DBusMenu::properties(int id) const {
    const auto& [item, children] = nodes_[static_cast<std::size_t>(id)];
    QVariantMap result;
    if (!children.empty()) result["children-display"] = "submenu";
    if (id == root) return result;
    if (item.kind == MenuItem::Kind::separator) {
        result["type"] = "separator";
        return result;
    }
    result["label"] = label(item.title);
    result["enabled"] = item.isEnabled && item.kind != MenuItem::Kind::heading;
    if (item.mark != MenuItem::Mark::none) {
        result["toggle-type"] = "checkmark";
        result["toggle-state"] = 1;
    }
    return result;
}

/// `depth` counts the levels below; a negative one means all of them.
MenuLayout DBusMenu::layout(int id, int depth) const {
    MenuLayout result{id, properties(id), {}};
    if (depth == 0) return result;
    for (const int child : nodes_[static_cast<std::size_t>(id)].children) {
        result.children.push_back(QVariant::fromValue(layout(child, depth - 1)));
    }
    return result;
}

void DBusMenu::takeEvent(int id, const QString& event) const {
    if (event != "clicked" || !isKnown(id)) return;
    const MenuItem& item = nodes_[static_cast<std::size_t>(id)].item;
    // Later, since the action may destroy this menu.
    if (item.isEnabled && item.action)
        QMetaObject::invokeMethod(QCoreApplication::instance(), item.action, Qt::QueuedConnection);
}

/// What the method returns; an empty list if there is no such method or item.
QVariantList DBusMenu::answer(const QString& member, const QVariantList& arguments) {
    const int id = arguments.value(0).toInt();
    if (member == "GetLayout" && isKnown(id))
        return {revision, QVariant::fromValue(layout(id, arguments.value(1).toInt()))};
    if (member == "GetProperty" && isKnown(id)) {
        const QVariant value = properties(id).value(arguments.value(1).toString());
        if (value.isValid()) return {QVariant::fromValue(QDBusVariant(value))};
    }
    if (member == "GetGroupProperties") {
        QList<int> all;
        const QList<int> ids = qdbus_cast<QList<int>>(arguments.value(0));
        // An empty list of ids means all items.
        for (int each = root; ids.isEmpty() && isKnown(each); ++each)
            all.push_back(each);
        QList<ItemProperties> result;
        for (const int each : ids.isEmpty() ? all : ids) {
            if (isKnown(each)) result.push_back({each, properties(each)});
        }
        return {QVariant::fromValue(result)};
    }
    // The layout never changes.
    if (member == "AboutToShow") return {false};
    if (member == "GetAll") return {objectProperties()};
    if (member == "Get") {
        const QVariant value = objectProperties().value(arguments.value(1).toString());
        if (value.isValid()) return {QVariant::fromValue(QDBusVariant(value))};
    }
    return {};
}

bool DBusMenu::handleMessage(const QDBusMessage& message, const QDBusConnection& connection) {
    if (message.member() == "Event") {
        takeEvent(message.arguments().value(0).toInt(), message.arguments().value(1).toString());
        return connection.send(message.createReply());
    }
    const QVariantList values = answer(message.member(), message.arguments());
    return !values.isEmpty() && connection.send(message.createReply(values));
}

QString DBusMenu::introspect(const QString&) const {
    return QString::fromUtf8(menuInterface);
}

} // namespace larkspan::freedesktop
