#pragma once

#include "model/Animation.h"
#include "model/ClickModifiers.h"
#include "model/DockStore.h"
#include "settings/BarLook.h"
#include "ui/bar/BarLayout.h"
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

#include <optional>
#include <vector>

namespace larkspan::ui {

/// Everything that one bar shows, kept in step with the model and the look; `Bar.qml` draws it and
/// tells what the user does with it. Lengths are points in the panel, from its top left. Main
/// thread only.
class BarScene : public QObject {
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
    Q_PROPERTY(double scrollX READ scrollX NOTIFY scrollChanged)
    Q_PROPERTY(double scrollRange READ scrollRange NOTIFY scrollChanged)
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
    Q_PROPERTY(bool hasKeyboard READ hasKeyboard NOTIFY litTileChanged)

  public:
    /// What lies behind the bar, and how much of it can be seen.
    struct Surface {
        QImage backdrop;
        QImage surroundings;
        /// Nothing can be seen and the corners are cut by the window's shape.
        bool cutsCorners = false;
        bool operator==(const Surface&) const = default;
    };

    BarScene(DockStore& store, BarLook& look, Appearance& appearance, IconCache& icons);

    /// Gives the bar its screen and its size; fills it.
    void place(DisplayId display, const Size& panel);
    void setSurface(Surface surface);
    /// Brings the tiles up to the model now instead of at the end of this turn.
    void refresh();
    /// The tile's target frame in the panel, without what is scrolled away.
    QRectF tileFrame(int index) const;
    const TileRow& row(int index) const { return tiles_.row(index); }

    TileModel* tiles() { return &tiles_; }
    MarkModel* marks() { return &marks_; }
    IconCache* icons() { return &icons_; }
    Appearance* appearance() { return &appearance_; }
    QRectF glass() const;
    double radius() const { return layout_.radius; }
    double iconSize() const { return layout_.iconSize; }
    double iconTop() const { return layout_.iconTop; }
    double tileWidth() const { return layout_.tileWidth; }
    double viewX() const { return layout_.viewX; }
    double viewWidth() const { return layout_.viewWidth; }
    bool scrolls() const { return layout_.scrolls(); }
    double scrollX() const { return scrollX_; }
    double scrollRange() const;
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
    int litTile() const { return litTile_; }
    bool hasKeyboard() const { return hasKeyboard_; }

    /// From the view.
    Q_INVOKABLE void hover(int index, bool isHovered);
    Q_INVOKABLE void scrollBy(double points);
    Q_INVOKABLE void scrollPage(int direction);
    Q_INVOKABLE void clickTile(int index, int button, int keys);
    Q_INVOKABLE void setPointerInside(bool isInside);
    /// The keyboard's way over the bar; answers whether the key meant something here.
    bool pressKey(int key, const QString& text, Qt::KeyboardModifiers keys = {});
    void setKeyboard(bool hasKeyboard);

  Q_SIGNALS:
    void layoutChanged();
    void scrollChanged();
    void lookChanged();
    void surfaceChanged();
    void travelChanged();
    void litTileChanged();
    void tileClicked(int index, larkspan::ClickModifiers modifiers);
    void menuRequested(int index);
    /// The menu of the bar itself, above this place of the panel.
    void barMenuRequested(double x);
    void pointerInsideChanged(bool isInside);
    void keyboardLeft();

  private:
    void observe();
    void refreshSoon();
    void applyLook();
    BarLayoutInput layoutInput() const;
    void setTravel(const Animation& animation);
    void setScrollX(double x);
    void setLitTile(int index);
    void moveKeyboard(int step);
    bool moveToLetter(const QString& text);
    void reveal(int index);

    DockStore& store_;
    BarLook& look_;
    Appearance& appearance_;
    IconCache& icons_;
    TileModel tiles_;
    MarkModel marks_;
    DisplayId display_ = 0;
    Size panel_;
    BarLayout layout_;
    Surface surface_;
    double scrollX_ = 0;
    int travelTime_ = 0;
    QVariantList travelCurve_;
    int litTile_ = -1;
    bool hasKeyboard_ = false;
    bool isRefreshPending_ = false;
    /// What came with the changes that are still to be shown.
    std::optional<Animation> pendingAnimation_;
    std::vector<Handle> observations_;
};

} // namespace larkspan::ui
