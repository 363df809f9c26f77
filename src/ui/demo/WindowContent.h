#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

namespace larkspan::ui {

/// What the app's window seems to show: enough to tell one app from another at a glance.
void paintContent(QPainter& painter, const QRectF& area, const QString& app);

} // namespace larkspan::ui
