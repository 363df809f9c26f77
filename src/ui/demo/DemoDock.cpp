#include "ui/demo/DemoDock.h"

#include "ui/demo/DemoLayer.h"
#include "ui/parts/Pictures.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace larkspan::ui {

namespace {

constexpr int growthMilliseconds = 350;
/// Between the shelf and the edge of the screen, and between the shelf and the strip's inner edge.
constexpr double gap = 4;

} // namespace

DemoDock::DemoDock(sim::SimMac& mac, QQuickItem& desktop, bool isAnimated)
    : QQuickPaintedItem(&desktop)
    , mac_(mac)
    , isAnimated_(isAnimated) {
    setZ(DemoLayer::dock);
    setAcceptedMouseButtons(Qt::LeftButton);
    growth_.setDuration(growthMilliseconds);
    growth_.setEasingCurve(QEasingCurve::OutCubic);
    connect(&growth_, &QVariantAnimation::valueChanged, this, [this](const QVariant& value) {
        thickness_ = value.toDouble();
        arrange();
    });
}

bool DemoDock::isSideways() const {
    return mac_.world().dock.place.orientation != 2;
}

/// The Finder, the pinned apps, then what else runs.
std::vector<DemoDock::Entry> DemoDock::entries() const {
    const sim::World& world = mac_.world();
    std::vector<std::string> identifiers{finderIdentifier};
    identifiers.insert(identifiers.end(), world.pinned.begin(), world.pinned.end());
    const auto isRunning = [&](const std::string& identifier) {
        return std::any_of(world.apps.begin(), world.apps.end(),
                           [&](const sim::App& app) { return app.bundleIdentifier == identifier; });
    };
    for (const sim::App& app : world.apps) {
        if (app.policy != ActivationPolicy::regular || !app.bundleIdentifier) continue;
        if (std::find(identifiers.begin(), identifiers.end(), *app.bundleIdentifier) ==
            identifiers.end())
            identifiers.push_back(*app.bundleIdentifier);
    }
    std::vector<Entry> entries;
    for (const std::string& identifier : identifiers) {
        const auto app = world.installed.find(identifier);
        if (app != world.installed.end())
            entries.push_back({app->second.path, app->second.icon, isRunning(identifier)});
    }
    return entries;
}

void DemoDock::refresh() {
    const sim::World& world = mac_.world();
    setVisible(!world.dock.autoHide && !world.displays.empty() &&
               mac_.pidOf(sim::DockProcess::bundleIdentifier) != 0);
    entries_ = entries();
    const double surplus = isSideways() ? 26 : world.stripHeight();
    const double icons = 16 + static_cast<double>(world.dock.tileSize) * 112;
    const double wanted = isSideways() ? std::max(1.0, std::floor(icons)) + surplus : surplus;
    if (isAnimated_ && thickness_ > 0 && isVisible()) {
        if (growth_.state() == QVariantAnimation::Running && growth_.endValue() == wanted) return;
        if (thickness_ != wanted) {
            growth_.stop();
            growth_.setStartValue(thickness_);
            growth_.setEndValue(wanted);
            growth_.start();
            return;
        }
    }
    thickness_ = wanted;
    arrange();
}

void DemoDock::arrange() {
    if (mac_.world().displays.empty() || entries_.empty()) return;
    const Rect& screen = mac_.world().displays.front().bounds;
    const double across = std::max(1.0, thickness_ - 2 * gap);
    const double along = static_cast<double>(entries_.size()) * across * 0.9 + across * 0.1;
    if (!isSideways()) {
        setPosition(
            {screen.x + std::round((screen.width - along) / 2), screen.maxY() - gap - across});
        setSize({along, across});
    } else {
        const bool isLeft = mac_.world().dock.place.orientation == 3;
        setPosition({isLeft ? screen.x + gap : screen.maxX() - gap - across,
                     screen.y + std::round((screen.height - along) / 2)});
        setSize({across, along});
    }
    update();
}

QRectF DemoDock::tile(std::size_t index) const {
    const double across = isSideways() ? width() : height();
    const double icon = across * 0.76;
    const double start = across * 0.12 + static_cast<double>(index) * across * 0.9;
    const double side = across * 0.1;
    return isSideways() ? QRectF(side, start, icon, icon) : QRectF(start, side, icon, icon);
}

void DemoDock::paint(QPainter* painter) {
    painter->setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    const double across = isSideways() ? width() : height();
    painter->setPen(QPen(QColor(255, 255, 255, 90), 1));
    painter->setBrush(QColor(255, 255, 255, 96));
    const QRectF shelf = QRectF(QPointF(), size()).adjusted(0.5, 0.5, -0.5, -0.5);
    painter->drawRoundedRect(shelf, across * 0.24, across * 0.24);
    const double scale = painter->deviceTransform().m11();
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        const Entry& entry = entries_[index];
        const QRectF place = tile(index);
        const int pixels = std::max(1, static_cast<int>(std::round(place.width() * scale)));
        if (entry.icon) painter->drawImage(place, pictureOf(entry.icon->bitmap(pixels)));
        if (!entry.isRunning || isSideways()) continue;
        painter->setPen(Qt::NoPen);
        painter->setBrush(QColor(20, 22, 40, 190));
        const double dot = std::max(1.0, across * 0.022);
        painter->drawEllipse(QPointF(place.center().x(), height() - across * 0.065), dot, dot);
    }
}

void DemoDock::mousePressEvent(QMouseEvent* event) {
    for (std::size_t index = 0; index < entries_.size(); ++index) {
        if (!tile(index).contains(event->position())) continue;
        mac_.open(std::string(entries_[index].path));
        if (onUse) onUse();
        return;
    }
}

} // namespace larkspan::ui
