#include "ui/bar/BarViewModel.h"

#include "ui/bar/SpringCurve.h"
#include "ui/bar/clickModifiers.h"

#include <QGuiApplication>

#include <algorithm>
#include <optional>
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

std::optional<BarKey> barKey(int key) {
    switch (key) {
    case Qt::Key_Left:
        return BarKey::left;
    case Qt::Key_Right:
        return BarKey::right;
    case Qt::Key_Tab:
        return BarKey::next;
    case Qt::Key_Backtab:
        return BarKey::previous;
    case Qt::Key_Home:
        return BarKey::first;
    case Qt::Key_End:
        return BarKey::last;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return BarKey::click;
    case Qt::Key_Up:
    case Qt::Key_Menu:
    case Qt::Key_Space:
        return BarKey::tileMenu;
    case Qt::Key_Down:
        return BarKey::barMenu;
    case Qt::Key_Escape:
        return BarKey::leave;
    default:
        return std::nullopt;
    }
}

} // namespace

BarViewModel::BarViewModel(BarInteraction& bar, BarLook& look, Appearance& appearance,
                           IconCache& icons)
    : bar_(bar)
    , look_(look)
    , appearance_(appearance)
    , icons_(icons) {
    bar_.setMirrored(QGuiApplication::isRightToLeft());
    observe();
}

void BarViewModel::observe() {
    observations_.push_back(bar_.contents.observe([this] { show(); }));
    observations_.push_back(bar_.scrollX.observe([this] { Q_EMIT scrollChanged(); }));
    observations_.push_back(bar_.litTile.observe([this] { Q_EMIT litTileChanged(); }));
    observations_.push_back(bar_.hasKeyboard.observe([this] { Q_EMIT keyboardChanged(); }));
    const auto relook = [this] { Q_EMIT lookChanged(); };
    observations_.push_back(look_.style.observe(relook));
    observations_.push_back(look_.glass.observe(relook));
    observations_.push_back(look_.dotColor.observe(relook));
    observations_.push_back(look_.dotGray.observe(relook));
}

void BarViewModel::setSurface(Surface surface) {
    if (surface == surface_) return;
    surface_ = std::move(surface);
    Q_EMIT surfaceChanged();
}

void BarViewModel::show() {
    const BarLayout& layout = bar_.layout();
    setTravel(layout);
    const bool isNewLayout = layout != shownLayout_;
    shownLayout_ = layout;
    if (isNewLayout) Q_EMIT layoutChanged();
    tiles_.setTiles(bar_.tiles(), layout.tileX);
    marks_.setMarks(layout.marks);
}

void BarViewModel::setTravel(const BarLayout& layout) {
    // Tiles that change their size snap: scaling every icon again on each frame would stutter.
    const bool canTravel = tiles_.rowCount() > 0 && layout.tileX.size() <= mostTravellingTiles &&
                           layout.tileWidth == shownLayout_.tileWidth &&
                           !appearance_.reducesMotion();
    const SpringCurve curve = springCurve(canTravel ? bar_.animation() : Animation{});
    if (curve.milliseconds == travelTime_) return;
    travelTime_ = curve.milliseconds;
    travelCurve_.clear();
    for (const qreal number : curve.bezier)
        travelCurve_ << number;
    Q_EMIT travelChanged();
}

QRectF BarViewModel::glass() const {
    const Rect& glass = bar_.layout().glass;
    return {glass.x, glass.y, glass.width, glass.height};
}

QColor BarViewModel::dotColor() const {
    return colorOf(*look_.dotColor, builtInDotColor);
}
QColor BarViewModel::dotGray() const {
    return colorOf(*look_.dotGray, builtInDotGray);
}

void BarViewModel::setPointerInside(bool isInside) {
    bar_.setPointerInside(isInside);
    Q_EMIT pointerInsideChanged(isInside);
}

void BarViewModel::scrollPage(End towards) {
    bar_.scrollPage(towards == RightEnd);
}

void BarViewModel::click(int index, Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    bar_.click(index, clickModifiers(button, keys));
}

bool BarViewModel::pressKey(int key, const QString& text, Qt::KeyboardModifiers keys) {
    if (const auto meaning = barKey(key))
        return bar_.press(*meaning, clickModifiers(Qt::LeftButton, keys));
    if (text.isEmpty() || !text.at(0).isLetterOrNumber()) return false;
    return bar_.walkTo([&text](const std::string& name) {
        return QString::fromStdString(name).startsWith(text, Qt::CaseInsensitive);
    });
}

} // namespace larkspan::ui
