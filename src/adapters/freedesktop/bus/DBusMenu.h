#pragma once

#include "platform/Menu.h"

#include <QDBusArgument>
#include <QDBusVirtualObject>
#include <QVariant>

#include <vector>

namespace larkspan::freedesktop {

/// One node of a menu as sent over the bus.
struct MenuLayout {
    int id = 0;
    QVariantMap properties;
    QVariantList children;
};
QDBusArgument& operator<<(QDBusArgument& argument, const MenuLayout& layout);
const QDBusArgument& operator>>(const QDBusArgument& argument, MenuLayout& layout);

/// A menu as an object on the session bus, with the interface "com.canonical.dbusmenu". The menu
/// does not change. The action of a chosen item runs in a later turn of the run loop.
class DBusMenu : public QDBusVirtualObject {
  public:
    explicit DBusMenu(const Menu& menu);

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    /// Which items are inside which, by index into `items_`; the root is 0, and is not an item
    /// itself.
    struct Node {
        MenuItem item;
        std::vector<int> children;
    };

    void add(int parent, const Menu& menu);
    bool isKnown(int id) const;
    QVariantMap properties(int id) const;
    MenuLayout layout(int id, int depth) const;
    QVariantList answer(const QString& member, const QVariantList& arguments);
    void takeEvent(int id, const QString& event) const;

    std::vector<Node> nodes_;
};

} // namespace larkspan::freedesktop
