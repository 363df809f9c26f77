#include "ui/demo/DemoPrivacy.h"

#include "ui/demo/DemoLayer.h"
#include "ui/demo/Scenery.h"

#include <QMouseEvent>
#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace larkspan::ui {

namespace {

using sim::Permission;

constexpr std::array permissions{Permission::accessibility, Permission::screenRecording};

QString titleOf(Permission permission) {
    return permission == Permission::accessibility ? "Accessibility" : "Screen Recording";
}

QString questionOf(Permission permission) {
    return permission == Permission::accessibility
               ? "“Larkspan” would like to control this computer using accessibility features."
               : "“Larkspan” would like to record this computer’s screen.";
}

QRectF switchFrame(const QRectF& row) {
    return {row.right() - 54, row.center().y() - 11, 38, 22};
}

QRectF buttonFrame(const QRectF& prompt, bool opensSettings) {
    const double top = prompt.bottom() - (opensSettings ? 80 : 44);
    return {prompt.left() + 20, top, prompt.width() - 40, 28};
}

void paintSwitch(QPainter& painter, const QRectF& frame, bool isOn) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isOn ? QColor(48, 179, 80) : QColor(200, 202, 208));
    painter.drawRoundedRect(frame, 11, 11);
    painter.setBrush(Qt::white);
    painter.drawEllipse(
        QRectF(isOn ? frame.right() - 20 : frame.left() + 2, frame.top() + 2, 18, 18));
}

void paintButton(QPainter& painter, const QRectF& frame, const QString& text, bool isDefault) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDefault ? QColor(47, 127, 242) : QColor(222, 223, 228));
    painter.drawRoundedRect(frame, 7, 7);
    painter.setFont(sceneryFont(13));
    painter.setPen(isDefault ? QColor(Qt::white) : QColor(28, 30, 36));
    painter.drawText(frame, Qt::AlignCenter, text);
}

} // namespace

DemoPrivacy::DemoPrivacy(sim::SimMac& mac, QQuickItem& desktop)
    : QQuickPaintedItem(&desktop)
    , mac_(mac) {
    setZ(DemoLayer::privacy);
    setAcceptedMouseButtons(Qt::LeftButton);
    setVisible(false);
}

void DemoPrivacy::refresh() {
    const sim::World& world = mac_.world();
    setVisible(!world.displays.empty() && (world.privacy.prompt() || world.privacy.pane()));
    if (!isVisible()) return;
    const Rect& screen = world.displays.front().bounds;
    setPosition({screen.x, screen.y});
    setSize({screen.width, screen.height});
    update();
}

/// Beside the middle of the screen, where the program's own window stands.
QRectF DemoPrivacy::paneFrame() const {
    constexpr double paneWidth = 400;
    const double x = std::min(width() / 2 + 190, width() - paneWidth - 20);
    return {std::round(x), std::round(height() / 2) - 290, paneWidth, 226};
}

QRectF DemoPrivacy::promptFrame() const {
    return {std::round(width() / 2) - 150, std::round(height() / 2) - 90, 300, 226};
}

QRectF DemoPrivacy::rowFrame(Permission permission) const {
    const QRectF pane = paneFrame();
    const int place = permission == Permission::accessibility ? 0 : 1;
    return {pane.left() + 20, pane.top() + titleBarHeight + 54 + place * 64, pane.width() - 40, 54};
}

bool DemoPrivacy::isGranted(Permission permission) const {
    return permission == Permission::accessibility ? mac_.world().trustedForAccessibility
                                                   : mac_.world().mayRecordScreen;
}

void DemoPrivacy::paint(QPainter* painter) {
    painter->setRenderHint(QPainter::Antialiasing);
    if (mac_.world().privacy.pane()) paintPane(*painter);
    if (mac_.world().privacy.prompt()) paintPrompt(*painter);
}

void DemoPrivacy::paintPane(QPainter& painter) const {
    const QRectF pane = paneFrame();
    paintWindow(painter, {.frame = pane,
                          .title = "Privacy & Security",
                          .isFront = true,
                          .background = QColor(245, 245, 247)});
    painter.setFont(sceneryFont(12));
    painter.setPen(QColor(90, 94, 104));
    painter.drawText(QRectF(pane.left() + 22, pane.top() + titleBarHeight + 14, 360, 30),
                     Qt::AlignLeft | Qt::AlignVCenter, "Allow the application below to be given:");
    for (const Permission permission : permissions) {
        const QRectF row = rowFrame(permission);
        const bool isMeant = mac_.world().privacy.pane() == permission;
        painter.setPen(QPen(isMeant ? QColor(47, 127, 242) : QColor(0, 0, 0, 26), isMeant ? 2 : 1));
        painter.setBrush(Qt::white);
        painter.drawRoundedRect(row, 9, 9);
        painter.setPen(QColor(28, 30, 36));
        painter.setFont(sceneryFont(13, QFont::DemiBold));
        painter.drawText(row.adjusted(16, 9, -70, -27), Qt::AlignLeft | Qt::AlignVCenter,
                         titleOf(permission));
        painter.setFont(sceneryFont(12));
        painter.setPen(QColor(90, 94, 104));
        painter.drawText(row.adjusted(16, 27, -70, -9), Qt::AlignLeft | Qt::AlignVCenter,
                         "Larkspan");
        paintSwitch(painter, switchFrame(row), isGranted(permission));
    }
}

void DemoPrivacy::paintPrompt(QPainter& painter) const {
    const QRectF prompt = promptFrame();
    paintShadow(painter, prompt, true);
    painter.setPen(QPen(QColor(0, 0, 0, 50), 1));
    painter.setBrush(QColor(240, 240, 244));
    painter.drawRoundedRect(prompt, 14, 14);
    painter.setPen(QColor(28, 30, 36));
    painter.setFont(sceneryFont(13, QFont::DemiBold));
    painter.drawText(prompt.adjusted(22, 20, -22, -150), Qt::AlignCenter | Qt::TextWordWrap,
                     questionOf(*mac_.world().privacy.prompt()));
    painter.setFont(sceneryFont(12));
    painter.setPen(QColor(90, 94, 104));
    painter.drawText(prompt.adjusted(22, 82, -22, -92), Qt::AlignCenter | Qt::TextWordWrap,
                     "Grant access to this application in Privacy & Security settings.");
    paintButton(painter, buttonFrame(prompt, true), "Open System Settings", true);
    paintButton(painter, buttonFrame(prompt, false), "Deny", false);
}

bool DemoPrivacy::pressPrompt(QPointF point) {
    sim::Privacy& privacy = mac_.world().privacy;
    if (!privacy.prompt() || !promptFrame().contains(point)) return false;
    for (const bool opensSettings : {true, false}) {
        if (buttonFrame(promptFrame(), opensSettings).contains(point))
            privacy.answer(opensSettings);
    }
    return true;
}

bool DemoPrivacy::pressPane(QPointF point) {
    sim::Privacy& privacy = mac_.world().privacy;
    if (!privacy.pane() || !paneFrame().contains(point)) return false;
    if (windowButton(paneFrame(), 0).contains(point)) privacy.closePane();
    if (switchFrame(rowFrame(Permission::accessibility)).contains(point))
        mac_.refuseAccessibility(isGranted(Permission::accessibility));
    if (switchFrame(rowFrame(Permission::screenRecording)).contains(point))
        mac_.refuseScreenRecording(isGranted(Permission::screenRecording));
    return true;
}

void DemoPrivacy::mousePressEvent(QMouseEvent* event) {
    if (!pressPrompt(event->position()) && !pressPane(event->position())) {
        event->ignore();
        return;
    }
    refresh();
    if (onUse) onUse();
}

} // namespace larkspan::ui
