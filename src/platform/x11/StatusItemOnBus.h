#pragma once

#include "platform/Shell.h"

#include <QDBusVirtualObject>
#include <QVariant>

namespace larkspan::x11 {

/// A status item as an object on the session bus, of the interface "org.kde.StatusNotifierItem".
/// Its menu is another object, at `menuPath`.
class StatusItemOnBus : public QDBusVirtualObject {
  public:
    static constexpr const char* path = "/StatusNotifierItem";
    static constexpr const char* menuPath = "/MenuBar";

    explicit StatusItemOnBus(const StatusItem& item);

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    QVariantMap properties_;
};

} // namespace larkspan::x11
