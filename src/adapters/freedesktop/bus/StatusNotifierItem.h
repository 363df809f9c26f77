#pragma once

#include "platform/StatusBar.h"

#include <QDBusVirtualObject>
#include <QVariant>

namespace larkspan::freedesktop {

/// A status item as an object on the session bus, with the interface "org.kde.StatusNotifierItem".
/// Its menu is another object, at `menuPath`.
class StatusNotifierItem : public QDBusVirtualObject {
  public:
    static constexpr const char* path = "/StatusNotifierItem";
    static constexpr const char* menuPath = "/MenuBar";

    explicit StatusNotifierItem(const StatusItem& item);

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

  private:
    QVariantMap properties_;
};

} // namespace larkspan::freedesktop
