#pragma once

#include <QPainter>
#include <QRectF>
#include <QString>

namespace larkspan::ui {

// The simulated Mac's pictures. Lengths are points; every function leaves the painter as it was.

inline constexpr double titleBarHeight = 30;

/// The wallpaper of a display, filling the rectangle.
void paintWallpaper(QPainter& painter, const QRectF& display);

/// The translucent bar at the top of a display. `isMain` adds what stands at its right end.
void paintMenuBar(QPainter& painter, const QRectF& bar, const QString& appName,
                  const QString& clock, bool hasStatusItem);
/// Where the status item stands in such a bar.
QRectF statusItemFrame(const QRectF& bar);

struct WindowPicture {
    QRectF frame;
    QString title;
    /// Decides what the window seems to show.
    QString app;
    bool isFront = false;
    bool isFullScreen = false;
};
void paintWindow(QPainter& painter, const WindowPicture& window);

/// The round buttons of a window's title bar: 0 closes, 1 minimises, 2 makes it full screen.
QRectF windowButton(const QRectF& frame, int index);

} // namespace larkspan::ui
