#include "ui/bar/BarScene.h"

#include "ui/bar/clickModifiers.h"

#include "ui/bar/SpringCurve.h"

#include <QGuiApplication>

#include <algorithm>
#include <utility>

namespace larkspan::ui {

namespace {

constexpr DotColor builtInDotColor{0.18, 0.50, 0.98, 1.0};
constexpr DotColor builtInDotGray{0.55, 0.58, 0.63, 1.0};
/// Beyond this, sliding every tile along costs more than it explains.
constexpr std::size_t mostTravellingTiles = 40;

QColor colorOf(const std::optional<DotColor>& color, const DotColor& builtIn) {
    const DotColor& value = color ? *color : builtIn;
    const auto channel = [](double number) {
        return static_cast<float>(std::clamp(number, 0.0, 1.0));
    };
    return QColor::fromRgbF(channel(value[0]), channel(value[1]), channel(value[2]),
                            channel(value[3]));
}

} // namespace

BarScene::BarScene(DockStore& store, BarLook& look, Appearance& appearance, IconCache& icons)
    : store_(store)
    , look_(look)
    , appearance_(appearance)
    , icons_(icons) {
    observe();
}

void BarScene::observe() {
    const auto refresh = [this] { refreshSoon(); };
    observations_.push_back(store_.pinnedItems().observe(refresh));
    observations_.push_back(store_.windowAppGroups().observe(refresh));
    observations_.push_back(store_.backgroundItems().observe(refresh));
    observations_.push_back(store_.frontmostPID().observe(refresh));
    observations_.push_back(store_.frontDisplays().observe(refresh));
    observations_.push_back(store_.badges().observe(refresh));
    observations_.push_back(store_.launchingIDs().observe(refresh));
    observations_.push_back(store_.attentionIDs().observe(refresh));
    observations_.push_back(store_.isTrashEmpty().observe(refresh));
    observations_.push_back(look_.showsTrash.observe(refresh));
    const auto relook = [this] { applyLook(); };
    observations_.push_back(look_.style.observe(relook));
    observations_.push_back(look_.glass.observe(relook));
    observations_.push_back(look_.islandRoundness.observe(relook));
    observations_.push_back(look_.islandInset.observe(relook));
    observations_.push_back(look_.islandPadding.observe(relook));
    observations_.push_back(look_.dotColor.observe(relook));
    observations_.push_back(look_.dotGray.observe(relook));
}

void BarScene::place(DisplayId display, const Size& panel) {
    if (display == display_ && panel == panel_) return;
    display_ = display;
    panel_ = panel;
    refresh();
}

void BarScene::setSurface(Surface surface) {
    if (surface == surface_) return;
    surface_ = std::move(surface);
    Q_EMIT surfaceChanged();
}

void BarScene::applyLook() {
    Q_EMIT lookChanged();
    refreshSoon();
}

/// The model sets several properties in one go; the bar follows once, at the end of the turn.
void BarScene::refreshSoon() {
    if (const auto animation = store_.animation()) pendingAnimation_ = animation;
    if (std::exchange(isRefreshPending_, true)) return;
    QMetaObject::invokeMethod(this, &BarScene::refresh, Qt::QueuedConnection);
}

BarLayoutInput BarScene::layoutInput() const {
    return {.panel = panel_,
            .style = *look_.style,
            .roundness = *look_.islandRoundness,
            .inset = *look_.islandInset,
            .padding = *look_.islandPadding,
            .isMirrored = QGuiApplication::isRightToLeft()};
}

void BarScene::refresh() {
    isRefreshPending_ = false;
    if (panel_.width <= 0) return;
    std::vector<TileRow> rows = tileRows(store_, display_, *look_.showsTrash);
    BarLayout layout = layOutBar(rows, layoutInput());
    // Tiles that change their size snap: scaling every icon anew on each frame would stutter.
    const bool canTravel = tiles_.rowCount() > 0 && rows.size() <= mostTravellingTiles &&
                           layout.tileWidth == layout_.tileWidth && !appearance_.reducesMotion();
    const Animation animation = pendingAnimation_.value_or(windowReadAnimation);
    pendingAnimation_.reset();
    setTravel(canTravel ? animation : Animation{});
    const std::string lit = litTile_ >= 0 ? tiles_.row(litTile_).key() : std::string();

    const bool isNewLayout = layout != layout_;
    layout_ = std::move(layout);
    if (isNewLayout) Q_EMIT layoutChanged();
    tiles_.setRows(std::move(rows), layout_.tileX);
    marks_.setMarks(layout_.marks);
    setScrollX(scrollX_);
    Q_EMIT scrollChanged();
    if (litTile_ >= 0) setLitTile(tiles_.indexOf(lit));
}

void BarScene::setTravel(const Animation& animation) {
    const SpringCurve curve = springCurve(animation);
    if (curve.milliseconds == travelTime_) return;
    travelTime_ = curve.milliseconds;
    travelCurve_.clear();
    for (const qreal number : curve.bezier)
        travelCurve_ << number;
    Q_EMIT travelChanged();
}

QRectF BarScene::glass() const {
    const Rect& glass = layout_.glass;
    return {glass.x, glass.y, glass.width, glass.height};
}

QRectF BarScene::tileFrame(int index) const {
    const double x = layout_.viewX - scrollX_ + layout_.tileX[static_cast<std::size_t>(index)];
    return {x, layout_.glass.y, layout_.tileWidth, layout_.glass.height};
}

QColor BarScene::dotColor() const {
    return colorOf(*look_.dotColor, builtInDotColor);
}
QColor BarScene::dotGray() const {
    return colorOf(*look_.dotGray, builtInDotGray);
}

double BarScene::scrollRange() const {
    return std::max(0.0, layout_.contentWidth - layout_.viewWidth);
}

void BarScene::setScrollX(double x) {
    const double next = std::clamp(x, 0.0, scrollRange());
    if (next == scrollX_) return;
    scrollX_ = next;
    Q_EMIT scrollChanged();
}

void BarScene::scrollBy(double points) {
    setScrollX(scrollX_ + points);
}

void BarScene::scrollPage(int direction) {
    const double page = std::max(layout_.tileWidth, layout_.viewWidth - layout_.tileWidth);
    scrollBy(direction * page);
}

void BarScene::reveal(int index) {
    const double x = layout_.tileX[static_cast<std::size_t>(index)];
    if (x < scrollX_) setScrollX(x);
    if (x + layout_.tileWidth > scrollX_ + layout_.viewWidth)
        setScrollX(x + layout_.tileWidth - layout_.viewWidth);
}

void BarScene::hover(int index, bool isHovered) {
    if (hasKeyboard_) return;
    if (isHovered)
        setLitTile(index);
    else if (index == litTile_)
        setLitTile(-1);
}

void BarScene::setPointerInside(bool isInside) {
    Q_EMIT pointerInsideChanged(isInside);
}

void BarScene::setLitTile(int index) {
    if (index == litTile_) return;
    litTile_ = index;
    Q_EMIT litTileChanged();
}

void BarScene::setKeyboard(bool hasKeyboard) {
    if (hasKeyboard == hasKeyboard_) return;
    hasKeyboard_ = hasKeyboard;
    litTile_ = hasKeyboard_ && tiles_.rowCount() > 0 ? 0 : -1;
    if (litTile_ == 0) reveal(0);
    Q_EMIT litTileChanged();
}

void BarScene::moveKeyboard(int step) {
    const int count = tiles_.rowCount();
    if (count == 0) return;
    setLitTile((litTile_ + step + count) % count);
    reveal(litTile_);
}

bool BarScene::moveToLetter(const QString& text) {
    const int count = tiles_.rowCount();
    if (text.isEmpty() || !text.at(0).isLetterOrNumber()) return false;
    for (int step = 1; step <= count; ++step) {
        const int index = (litTile_ + step) % count;
        const QString name = QString::fromStdString(tiles_.row(index).item.name);
        if (!name.startsWith(text, Qt::CaseInsensitive)) continue;
        setLitTile(index);
        reveal(index);
        break;
    }
    return true;
}

void BarScene::clickTile(int index, int button, int keys) {
    Q_EMIT tileClicked(index,
                       clickModifiers(static_cast<Qt::MouseButton>(button),
                                      Qt::KeyboardModifiers::fromInt(static_cast<unsigned>(keys))));
}

bool BarScene::pressKey(int key, const QString& text, Qt::KeyboardModifiers keys) {
    if (!hasKeyboard_ || litTile_ < 0) return false;
    const int forward = QGuiApplication::isRightToLeft() ? -1 : 1;
    switch (key) {
    case Qt::Key_Right:
        moveKeyboard(forward);
        return true;
    case Qt::Key_Left:
        moveKeyboard(-forward);
        return true;
    case Qt::Key_Tab:
        moveKeyboard(1);
        return true;
    case Qt::Key_Backtab:
        moveKeyboard(-1);
        return true;
    case Qt::Key_Home:
        moveKeyboard(-litTile_);
        return true;
    case Qt::Key_End:
        moveKeyboard(-litTile_ - 1);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        // Taken before the keyboard goes, which puts the light out.
        const int index = litTile_;
        Q_EMIT keyboardLeft();
        Q_EMIT tileClicked(index, clickModifiers(Qt::LeftButton, keys));
        return true;
    }
    case Qt::Key_Up:
    case Qt::Key_Menu:
    case Qt::Key_Space:
        Q_EMIT menuRequested(litTile_);
        return true;
    case Qt::Key_Down:
        Q_EMIT barMenuRequested(tileFrame(litTile_).center().x());
        return true;
    case Qt::Key_Escape:
        Q_EMIT keyboardLeft();
        return true;
    default:
        return moveToLetter(text);
    }
}

} // namespace larkspan::ui
