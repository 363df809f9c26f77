import QtQuick

/// Says that an app runs: a dot below its icon, a longer one for the app in front.
Rectangle {
    id: dot

    required property Tile tile

    readonly property BarScene scene: tile.scene

    anchors.horizontalCenter: parent.horizontalCenter
    y: scene.iconTop + scene.iconSize + Math.max(2, Math.round((scene.glass.y + scene.glass.height
       - scene.iconTop - scene.iconSize - height) / 2) - 1)
    width: tile.isFront ? 14 : tile.wantsAttention ? 8 : 4
    height: 4
    radius: 2
    antialiasing: true
    color: tile.wantsAttention ? "#ff8a1f" : tile.dot === 2 ? scene.dotGray : scene.dotColor

    Behavior on width {
        enabled: dot.scene.travels
        NumberAnimation { duration: 160; easing.type: Easing.OutCubic }
    }
}
