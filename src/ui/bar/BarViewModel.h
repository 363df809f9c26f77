#pragma once

#include "bar/BarInteraction.h"
#include "settings/BarLook.h"
#include "ui/bar/MarkModel.h"
#include "ui/bar/TileModel.h"
#include "ui/parts/Appearance.h"
#include "ui/parts/IconCache.h"

#include <QColor>
#include <QImage>
#include <QObject>
#include <QRectF>
#include <QVariantList>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace larkspan::ui {

/// One bar as `Bar.qml` draws it: what the interaction says, in the toolkit's types, and the
/// surface on which it is drawn. Hands on what the user does. Lengths are points in the panel, from
/// its top left. Main thread only.
class BarViewModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the panel that shows it")
    Q_PROPERTY(larkspan::ui::TileModel* tiles READ tiles CONSTANT)
    Q_PROPERTY(larkspan::ui::MarkModel* marks READ marks CONSTANT)
    Q_PROPERTY(larkspan::ui::IconCache* icons READ icons CONSTANT)
    Q_PROPERTY(larkspan::ui::Appearance* appearance READ appearance CONSTANT)
    Q_PROPERTY(QRectF glass READ glass NOTIFY layoutChanged)
    Q_PROPERTY(double radius READ radius NOTIFY layoutChanged)
    Q_PROPERTY(double iconSize READ iconSize NOTIFY layoutChanged)
    Q_PROPERTY(double iconTop READ iconTop NOTIFY layoutChanged)
    Q_PROPERTY(double tileWidth READ tileWidth NOTIFY layoutChanged)
    Q_PROPERTY(double viewX READ viewX NOTIFY layoutChanged)
    Q_PROPERTY(double viewWidth READ viewWidth NOTIFY layoutChanged)
    Q_PROPERTY(bool scrolls READ scrolls NOTIFY layoutChanged)
    Q_PROPERTY(double scrollRange READ scrollRange NOTIFY layoutChanged)
    Q_PROPERTY(double scrollX READ scrollX NOTIFY scrollChanged)
    Q_PROPERTY(bool isBand READ isBand NOTIFY lookChanged)
    Q_PROPERTY(bool isFrosted READ isFrosted NOTIFY lookChanged)
    Q_PROPERTY(QColor dotColor READ dotColor NOTIFY lookChanged)
    Q_PROPERTY(QColor dotGray READ dotGray NOTIFY lookChanged)
    Q_PROPERTY(QImage backdrop READ backdrop NOTIFY surfaceChanged)
    Q_PROPERTY(QImage surroundings READ surroundings NOTIFY surfaceChanged)
    Q_PROPERTY(bool cutsCorners READ cutsCorners NOTIFY surfaceChanged)
    /// False while the bar is filled for the first time: nothing travels then.
    Q_PROPERTY(bool travels READ travels NOTIFY travelChanged)
    Q_PROPERTY(int travelTime READ travelTime NOTIFY travelChanged)
    Q_PROPERTY(QVariantList travelCurve READ travelCurve NOTIFY travelChanged)
    /// The tile under the pointer, or with the keyboard on it; -1 for none.
    Q_PROPERTY(int litTile READ litTile NOTIFY litTileChanged)
    Q_PROPERTY(bool hasKeyboard READ hasKeyboard NOTIFY keyboardChanged)

  public:
    enum Direction { ToTheLeft, ToTheRight };
    Q_ENUM(Direction)

    /// What lies behind the bar, and how much of it can be seen.
    struct Surface {
        QImage backdrop;
        QImage surroundings;
        /// Nothing can be seen and the corners are cut by the window's shape.
        bool cutsCorners = false;
        bool operator==(const Surface&) const = default;
    };

    BarViewModel(BarInteraction& bar, BarLook& look, Appearance& appearance, IconCache& icons);

    BarInteraction& bar() { return bar_; }
    void setSurface(Surface surface);

    TileModel* tiles() { return &tiles_; }
    MarkModel* marks() { return &marks_; }
    IconCache* icons() { return &icons_; }
    Appearance* appearance() { return &appearance_; }
    QRectF glass() const;
    double radius() const { return bar_.layout().radius; }
    double iconSize() const { return bar_.layout().iconSize; }
    double iconTop() const { return bar_.layout().iconTop; }
    double tileWidth() const { return bar_.layout().tileWidth; }
    double viewX() const { return bar_.layout().viewX; }
    double viewWidth() const { return bar_.layout().viewWidth; }
    bool scrolls() const { return bar_.layout().scrolls(); }
    double scrollRange() const { return bar_.layout().scrollRange(); }
    double scrollX() const { return *bar_.scrollX; }
    bool isBand() const { return *look_.style == BarStyle::bar; }
    bool isFrosted() const { return *look_.glass == GlassKind::regular; }
    QColor dotColor() const;
    QColor dotGray() const;
    QImage backdrop() const { return surface_.backdrop; }
    QImage surroundings() const { return surface_.surroundings; }
    bool cutsCorners() const { return surface_.cutsCorners; }
    bool travels() const { return travelTime_ > 0; }
    int travelTime() const { return travelTime_; }
    QVariantList travelCurve() const { return travelCurve_; }
    int litTile() const { return *bar_.litTile; }
    bool hasKeyboard() const { return *bar_.hasKeyboard; }

    // From the view.

    Q_INVOKABLE void setPointerInside(bool isInside);
    Q_INVOKABLE void hover(int index, bool isHovered) { bar_.hover(index, isHovered); }
    Q_INVOKABLE void scrollBy(double points) { bar_.scrollBy(points); }
    Q_INVOKABLE void scrollPage(larkspan::ui::BarViewModel::Direction direction);
    Q_INVOKABLE void click(int index, Qt::MouseButton button, Qt::KeyboardModifiers keys);
    Q_INVOKABLE void openTileMenu(int index) { bar_.openTileMenu(index); }
    Q_INVOKABLE void openBarMenu(double x) { bar_.openBarMenu(x); }
    /// Returns whether the key meant something here.
    bool pressKey(int key, const QString& text, Qt::KeyboardModifiers keys = {});

  Q_SIGNALS:
    void layoutChanged();
    void scrollChanged();
    void lookChanged();
    void surfaceChanged();
    void travelChanged();
    void litTileChanged();
    void keyboardChanged();
    void pointerInsideChanged(bool isInside);

  private:
    void observe();
    void show();
    void setTravel(const BarLayout& layout);

    BarInteraction& bar_;
    BarLook& look_;
    Appearance& appearance_;
    IconCache& icons_;
    TileModel tiles_;
    MarkModel marks_;
    /// As it was told last.
    BarLayout shownLayout_;
    Surface surface_;
    int travelTime_ = 0;
    QVariantList travelCurve_;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
