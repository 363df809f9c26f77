import QtQuick

/// The light under the tile that the pointer or the keyboard is on.
Rectangle {
    required property Tile tile

    anchors.horizontalCenter: parent.horizontalCenter
    y: tile.iconTop - 3
    z: -1
    width: tile.width
    height: tile.iconSize + 6
    radius: 11
    antialiasing: true
    color: Qt.rgba(tile.ink.r, tile.ink.g, tile.ink.b, 0.09)
    border.width: tile.scene.hasKeyboard ? 2 : 0
    border.color: tile.scene.dotColor
}
