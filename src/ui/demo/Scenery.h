#pragma once

#include <QColor>
#include <QFont>
#include <QPainter>
#include <QRectF>
#include <QString>

namespace larkspan::ui {

// The simulated Mac's pictures. Lengths are points; every function leaves the painter as it was.

inline constexpr double titleBarHeight = 30;
inline constexpr double windowCornerRadius = 11;
/// How far a window's shadow reaches beyond it.
inline constexpr double windowShadow = 32;

QFont sceneryFont(int pixels, QFont::Weight weight = QFont::Normal);

/// The wallpaper of a display, filling the rectangle.
void paintWallpaper(QPainter& painter, const QRectF& display);

/// The translucent bar at the top of a display. `isMain` adds what stands at its right end.
void paintMenuBar(QPainter& painter, const QRectF& bar, const QString& appName,
                  const QString& clock, bool hasStatusItem);
/// Where the sign at the start of such a bar stands: the system's own menu.
QRectF systemMenuFrame(const QRectF& bar);
/// Where the status item stands in such a bar.
QRectF statusItemFrame(const QRectF& bar);

struct WindowPicture {
    QRectF frame;
    QString title;
    /// Decides what the window seems to show.
    QString app;
    bool isFront = false;
    bool isFullScreen = false;
    /// Fills the window in the place of what the app would show.
    QColor background;
};
void paintShadow(QPainter& painter, const QRectF& frame, bool isFront);
void paintWindow(QPainter& painter, const WindowPicture& window);

/// The round buttons of a window's title bar: 0 closes, 1 minimises, 2 makes it full screen.
QRectF windowButton(const QRectF& frame, int index);

} // namespace larkspan::ui
