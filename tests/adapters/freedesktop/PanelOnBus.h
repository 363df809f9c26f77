#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// A panel that shows status items, on a session bus that only the test program uses. It records
/// the items that register, and uses them as a user would.
class PanelOnBus {
  public:
    /// The first one starts the bus. Throws if there is no bus daemon on this machine.
    PanelOnBus();
    ~PanelOnBus();
    PanelOnBus(const PanelOnBus&) = delete;
    PanelOnBus& operator=(const PanelOnBus&) = delete;

    /// Registers the panel, which before does not know of any items.
    void appear();
    /// The titles of the registered items.
    std::vector<std::string> shown();
    /// The label of a menu item, counted from 1 with the separators; empty if there is none.
    QString label(int line);
    /// Clicks an item by index, whether or not it exists.
    void click(int line);
    /// Clicks the item with that label; false if there is none.
    bool choose(const std::string& label);
    QDBusMessage call(const QString& path, const QString& interface, const QString& member,
                      const QVariantList& arguments);

  private:
    class Watcher : public QDBusVirtualObject {
      public:
        QString introspect(const QString&) const override { return {}; }
        bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;
        std::vector<QString> registered;
    };
    QString title(const QString& service);
    QDBusMessage call(const QString& service, const QString& path, const QString& interface,
                      const QString& member, const QVariantList& arguments);

    QDBusConnection bus_;
    Watcher watcher_;
};

} // namespace larkspan::freedesktop
