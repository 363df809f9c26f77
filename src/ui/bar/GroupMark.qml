import QtQuick
import Larkspan

/// A line between two sections, or the ring around the apps of a desktop that is not shown.
Rectangle {
    id: mark

    required property BarScene scene
    required property color ink
    required property bool isRing
    required property int slotX
    required property int slotWidth

    property int travelX: slotX
    property int travelWidth: slotWidth

    x: travelX
    y: isRing ? scene.iconTop - 4 : scene.iconTop + scene.iconSize * 0.08
    width: travelWidth
    height: isRing ? scene.iconSize + 8 : scene.iconSize * 0.84
    radius: isRing ? 10 : 0
    color: isRing ? Qt.rgba(ink.r, ink.g, ink.b, 0.05) : Qt.rgba(ink.r, ink.g, ink.b, 0.2)
    border.width: isRing ? 1 : 0
    border.color: Qt.rgba(ink.r, ink.g, ink.b, 0.2)
    antialiasing: isRing

    Behavior on travelX {
        enabled: mark.scene.travels
        Travel { scene: mark.scene }
    }

    Behavior on travelWidth {
        enabled: mark.scene.travels
        Travel { scene: mark.scene }
    }
}
