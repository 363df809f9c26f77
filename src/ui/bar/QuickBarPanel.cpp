#include "ui/bar/QuickBarPanel.h"

#include "ui/parts/Pictures.h"
#include "ui/parts/Shape.h"

#include <QGuiApplication>
#include <QKeyEvent>

#include <QScreen>

#include <cmath>

namespace larkspan::ui {

namespace {

/// Frosted glass blurs so many times as much as clear glass.
constexpr double frostedBlur = 4;

QRect rounded(const Rect& rect) {
    return QRectF(rect.x, rect.y, rect.width, rect.height).toRect();
}

/// The screen's rectangle as the toolkit counts it, which on a scaled desktop is not quite how the
/// system does.
QRect desktopRect(const Screen& screen) {
    for (const QScreen* candidate : QGuiApplication::screens())
        if (candidate->name().toStdString() == screen.displayIdentifier)
            return candidate->geometry();
    return rounded(screen.bounds);
}

} // namespace

QuickBarPanel::QuickBarPanel(Views& views, std::unique_ptr<BarScene> scene, BarLook& look,
                             PanelDressing& dressing, DesktopPicture& desktop)
    : dressing_(dressing)
    , desktop_(desktop)
    , look_(look)
    , scene_(std::move(scene))
    , root_(views.make("bar/Bar", {{"scene", QVariant::fromValue(scene_.get())}})) {
    root_->setParentItem(window_.contentItem());
    window_.create();
    dressing_.dress(nativeWindow());
    connect(scene_.get(), &BarScene::layoutChanged, this, &QuickBarPanel::updateShape);
    // The last thing told of every change of the tiles.
    connect(scene_.get(), &BarScene::scrollChanged, this, &QuickBarPanel::updateTiles);
    observations_.push_back(desktop_.subscribe([this] { updateSurface(); }));
    observations_.push_back(look_.glass.observe([this] { updateSurface(); }));
    observations_.push_back(look_.glassBlur.observe([this] { updateSurface(); }));
    connect(&window_, &BarWindow::keyPressed, this, [this](QKeyEvent* event) {
        event->setAccepted(scene_->pressKey(event->key(), event->text(), event->modifiers()));
    });
    connect(&window_, &BarWindow::pressed, this, &QuickBarPanel::leaveKeyboard);
    connect(scene_.get(), &BarScene::keyboardLeft, this, &QuickBarPanel::leaveKeyboard);
}

QuickBarPanel::~QuickBarPanel() {
    orderOut();
    root_.reset();
}

void QuickBarPanel::place(const Screen& screen, double height) {
    if (screen == screen_ && height == height_) return;
    screen_ = screen;
    height_ = height;
    area_ = desktopRect(screen);
    const int points = static_cast<int>(std::lround(height));
    window_.setGeometry(area_.x(), area_.bottom() + 1 - points, area_.width(), points);
    root_->setSize(QSizeF(area_.width(), points));
    updateSurface();
    scene_->place(screen.display,
                  {static_cast<double>(area_.width()), static_cast<double>(points)});
    updateShape();
    if (isShown_) updateStrip();
}

void QuickBarPanel::orderIn() {
    if (isShown_) return;
    isShown_ = true;
    // Anew each time: window managers forget a window's desktops and states when it hides.
    dressing_.dress(nativeWindow());
    scene_->refresh();
    updateStrip();
    updateTiles();
    window_.show();
}

void QuickBarPanel::orderOut() {
    if (!isShown_) return;
    isShown_ = false;
    leaveKeyboard();
    window_.hide();
    updateStrip();
    updateTiles();
}

bool QuickBarPanel::takeKeyboard() {
    if (!isShown_ || !window_.takeKeyboard()) return false;
    scene_->setKeyboard(true);
    return true;
}

void QuickBarPanel::leaveKeyboard() {
    if (!scene_->hasKeyboard()) return;
    scene_->setKeyboard(false);
    window_.releaseKeyboard();
    if (isShown_) dressing_.giveKeyboardBack(nativeWindow());
}

void QuickBarPanel::updateStrip() {
    dressing_.reserveStrip(nativeWindow(), screen_, isShown_ ? height_ : 0);
}

/// Of an app with several tiles the one of a group whose Space is shown, else of any group.
void QuickBarPanel::updateTiles() {
    std::map<ProcessId, Rect> frames;
    const auto note = [&](int index) {
        const QRectF tile = scene_->tileFrame(index);
        const Rect& bounds = screen_.bounds;
        frames[scene_->row(index).item.app->pid] = {
            bounds.x + tile.x(), bounds.maxY() - height_ + tile.y(), tile.width(), tile.height()};
    };
    const int count = isShown_ ? scene_->tiles()->rowCount() : 0;
    const auto rank = [this](int index) {
        const TileRow& row = scene_->row(index);
        return !row.item.app                              ? 0
               : row.section != TileRow::Section::windows ? 1
               : row.isRing                               ? 2
                                                          : 3;
    };
    for (const int wanted : {1, 2, 3})
        for (int index = 0; index < count; ++index)
            if (rank(index) == wanted) note(index);
    dressing_.setTiles(screen_.display, frames);
}

Rect QuickBarPanel::barFrame() const {
    const QRectF glass = scene_->glass();
    return {screen_.frame.x + glass.x(), screen_.frame.y + height_ - glass.bottom(), glass.width(),
            glass.height()};
}

QRectF QuickBarPanel::tileOnDesktop(int index) const {
    return placeOnDesktop(scene_->tileFrame(index));
}

QRectF QuickBarPanel::placeOnDesktop(const QRectF& place) const {
    // Not the window's own position: a window manager that puts it into a frame makes that
    // relative.
    return place.translated(area_.left(), area_.bottom() + 1 - height_);
}

Rect QuickBarPanel::tileOnScreen(int index) const {
    const QRectF tile = scene_->tileFrame(index);
    return {screen_.frame.x + tile.x(), screen_.frame.y + height_ - tile.bottom(), tile.width(),
            tile.height()};
}

void QuickBarPanel::updateSurface() {
    if (height_ <= 0) return;
    const Rect& bounds = screen_.bounds;
    const Rect area{bounds.x, bounds.maxY() - height_, bounds.width, height_};
    QImage picture;
    if (const auto bitmap = desktop_.under(area)) picture = pictureOf(*bitmap);
    BarScene::Surface surface;
    if (!picture.isNull()) {
        const double ratio = picture.height() / height_;
        const bool isFrosted = *look_.glass == GlassKind::regular;
        surface.backdrop =
            frosted(picture, *look_.glassBlur * ratio * (isFrosted ? frostedBlur : 1));
        surface.backdrop.setDevicePixelRatio(ratio);
        picture.setDevicePixelRatio(ratio);
    }
    if (!desktop_.isComposited()) {
        surface.surroundings = picture;
        surface.cutsCorners = picture.isNull();
    }
    scene_->setSurface(std::move(surface));
    updateShape();
}

/// Beside the glass, the pointer and the eye must reach what lies beneath.
void QuickBarPanel::updateShape() {
    const QRectF glass = scene_->glass();
    if (glass.isEmpty()) return;
    dressing_.setInputArea(nativeWindow(),
                           {glass.x(), glass.y(), glass.width(), window_.height() - glass.y()});
    if (desktop_.isComposited() || scene_->isBand()) {
        window_.setMask({});
        return;
    }
    if (!scene_->cutsCorners()) {
        window_.setMask(
            QRegion(glass.adjusted(-4, 0, 4, 4).toAlignedRect() & QRect(QPoint(), window_.size())));
        return;
    }

    window_.setMask(roundedRegion(glass, scene_->radius()));
}

} // namespace larkspan::ui
