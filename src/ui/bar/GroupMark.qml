import QtQuick
import Larkspan

/// A line between two sections, or the ring around the apps of a desktop that is not shown.
Rectangle {
    id: mark

    required property BarViewModel bar
    required property color ink
    required property bool isRing
    required property int slotX
    required property int slotWidth

    property int travelX: slotX
    property int travelWidth: slotWidth

    x: travelX
    y: isRing ? bar.iconTop - 4 : bar.iconTop + bar.iconSize * 0.08
    width: travelWidth
    height: isRing ? bar.iconSize + 8 : bar.iconSize * 0.84
    radius: isRing ? 10 : 0
    color: isRing ? Qt.rgba(ink.r, ink.g, ink.b, 0.05) : Qt.rgba(ink.r, ink.g, ink.b, 0.2)
    border.width: isRing ? 1 : 0
    border.color: Qt.rgba(ink.r, ink.g, ink.b, 0.2)
    antialiasing: isRing

    Behavior on travelX {
        enabled: mark.bar.travels
        Travel { bar: mark.bar }
    }

    Behavior on travelWidth {
        enabled: mark.bar.travels
        Travel { bar: mark.bar }
    }
}
