#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVirtualObject>
#include <QString>

#include <memory>
#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// A panel that shows status items, on a session bus that the test program has to itself. It takes
/// note of the items that register and does with them what its user would.
class PanelOnBus {
  public:
    /// Starts the bus when it is the first. Throws without a bus daemon on this machine.
    PanelOnBus();
    ~PanelOnBus();
    PanelOnBus(const PanelOnBus&) = delete;
    PanelOnBus& operator=(const PanelOnBus&) = delete;

    /// A panel that is not there yet hears of no item.
    void appear();
    /// The titles of the items that are there.
    std::vector<std::string> shown();
    /// The label of a line of the menu, counted from 1 with the separators; empty for none.
    QString label(int line);
    /// Clicks a line by its place, whether there is one or not.
    void click(int line);
    /// Clicks the line of that label; false when there is none.
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
