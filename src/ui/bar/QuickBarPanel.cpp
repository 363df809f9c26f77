#include "ui/bar/QuickBarPanel.h"

#include "bar/barTiles.h"
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

} // namespace

QRect desktopArea(const Screen& screen) {
    for (const QScreen* candidate : QGuiApplication::screens())
        if (candidate->name().toStdString() == screen.displayIdentifier)
            return candidate->geometry();
    return rounded(screen.bounds);
}

QuickBarPanel::QuickBarPanel(Views& views, std::unique_ptr<BarViewModel> model, BarLook& look,
                             PanelDressing& dressing, DesktopPicture& desktop)
    : dressing_(dressing)
    , desktop_(desktop)
    , look_(look)
    , model_(std::move(model))
    , root_(views.make("bar/Bar", {{"bar", QVariant::fromValue(model_.get())}})) {
    root_->setParentItem(window_.contentItem());
    window_.create();
    dressing_.dress(nativeWindow());
    observe();
    connect(&window_, &BarWindow::keyPressed, this, [this](QKeyEvent* event) {
        event->setAccepted(model_->pressKey(event->key(), event->text(), event->modifiers()));
    });
    connect(&window_, &BarWindow::pressed, this, [this] { bar().setKeyboard(false); });
}

void QuickBarPanel::observe() {
    connect(model_.get(), &BarViewModel::layoutChanged, this, &QuickBarPanel::updateShape);
    observations_.push_back(bar().contents.observe([this] { updateTiles(); }));
    observations_.push_back(bar().scrollX.observe([this] { updateTiles(); }));
    observations_.push_back(bar().hasKeyboard.observe([this] { releaseKeyboard(); }));
    observations_.push_back(desktop_.subscribe([this] { updateSurface(); }));
    observations_.push_back(look_.glass.observe([this] { updateSurface(); }));
    observations_.push_back(look_.glassBlur.observe([this] { updateSurface(); }));
}

QuickBarPanel::~QuickBarPanel() {
    orderOut();
    root_.reset();
}

Size QuickBarPanel::place(const Screen& screen, double height) {
    if (screen == screen_ && height == height_) return size_;
    screen_ = screen;
    height_ = height;
    const QRect area = desktopArea(screen);
    const int points = static_cast<int>(std::lround(height));
    size_ = {static_cast<double>(area.width()), static_cast<double>(points)};
    window_.setGeometry(area.x(), area.bottom() + 1 - points, area.width(), points);
    root_->setSize(QSizeF(area.width(), points));
    updateSurface();
    if (isShown_) updateStrip();
    return size_;
}

void QuickBarPanel::orderIn() {
    if (isShown_) return;
    isShown_ = true;
    // Again each time: window managers forget a window's desktops and states when it hides.
    dressing_.dress(nativeWindow());
    updateStrip();
    updateTiles();
    window_.show();
}

void QuickBarPanel::orderOut() {
    if (!isShown_) return;
    isShown_ = false;
    window_.hide();
    updateStrip();
    updateTiles();
}

bool QuickBarPanel::takeKeyboard() {
    return isShown_ && window_.takeKeyboard();
}

void QuickBarPanel::keepKeyboard() {
    if (*bar().hasKeyboard) takeKeyboard();
}

void QuickBarPanel::releaseKeyboard() {
    if (*bar().hasKeyboard) return;
    window_.releaseKeyboard();
    if (isShown_) dressing_.giveKeyboardBack(nativeWindow());
}

void QuickBarPanel::updateStrip() {
    dressing_.reserveStrip(nativeWindow(), screen_, isShown_ ? height_ : 0);
}

void QuickBarPanel::updateTiles() {
    std::map<ProcessId, Rect> frames;
    if (isShown_) {
        for (const auto& [pid, tile] : tilesOfApps(bar().tiles())) {
            const Rect inPanel = bar().layout().tileFrame(tile, *bar().scrollX);
            frames[pid] = {screen_.bounds.x + inPanel.x,
                           screen_.bounds.maxY() - size_.height + inPanel.y, inPanel.width,
                           inPanel.height};
        }
    }
    dressing_.setTiles(screen_.display, frames);
}

void QuickBarPanel::updateSurface() {
    if (height_ <= 0) return;
    const Rect& bounds = screen_.bounds;
    const Rect area{bounds.x, bounds.maxY() - height_, bounds.width, height_};
    QImage picture;
    if (const auto bitmap = desktop_.under(area)) picture = pictureOf(*bitmap);
    BarViewModel::Surface surface;
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
    model_->setSurface(std::move(surface));
    updateShape();
}

/// Beside the glass, the pointer and the eye must reach what lies beneath.
void QuickBarPanel::updateShape() {
    const QRectF glass = model_->glass();
    if (glass.isEmpty()) return;
    dressing_.setInputArea(nativeWindow(),
                           {glass.x(), glass.y(), glass.width(), window_.height() - glass.y()});
    if (desktop_.isComposited() || model_->isBand()) {
        window_.setMask({});
        return;
    }
    if (!model_->cutsCorners()) {
        window_.setMask(
            QRegion(glass.adjusted(-4, 0, 4, 4).toAlignedRect() & QRect(QPoint(), window_.size())));
        return;
    }

    window_.setMask(roundedRegion(glass, model_->radius()));
}

} // namespace larkspan::ui
