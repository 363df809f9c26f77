import QtQuick
import Larkspan

/// The light under the tile that the pointer or the keyboard is on.
Rectangle {
    required property TileItem tile
    required property color ink
    required property color focusColor
    required property bool hasKeyboard

    anchors.horizontalCenter: parent.horizontalCenter
    y: tile.iconTop - 3
    z: -1
    width: tile.width
    height: tile.iconSize + 6
    radius: 11
    antialiasing: true
    color: Qt.rgba(ink.r, ink.g, ink.b, 0.09)
    border.width: hasKeyboard ? 2 : 0
    border.color: focusColor
}
