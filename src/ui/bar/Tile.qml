import QtQuick
import Larkspan

/// One app, or the Trash.
TileItem {
    id: tile

    required property BarViewModel bar
    required property color ink
    required property int index
    required property string status
    required property int slotX
    required property int dot
    required property bool isFront
    required property bool isQuiet
    required property bool isLaunching
    required property bool wantsAttention
    required property string badge
    /// How far from its place the tile enters, in points.
    required property real flightX
    required image
    required name

    readonly property bool isLit: bar.litTile === index
    /// Goes up and down while the app is being opened.
    property real breath: 1
    property int travelX: slotX
    /// The way an entering tile still has to rise, in points.
    property int rise: 0
    /// The way it still has to fly along the bar.
    property real flight: 0

    x: travelX + Math.round(flight)
    z: flight !== 0 ? 1 : 0
    y: rise
    width: bar.tileWidth
    height: parent.height
    icons: bar.icons
    iconSize: bar.iconSize
    iconTop: bar.iconTop
    opacity: (pressed ? 0.6 : isQuiet && !isLit ? 0.55 : 1) * breath

    onHoveredChanged: bar.hover(index, hovered)
    onClicked: (button, keys) => bar.click(index, button, keys)
    onMenuRequested: bar.openTileMenu(index)

    TileHighlight {
        tile: tile
        ink: tile.ink
        hasKeyboard: tile.bar.hasKeyboard
        focusColor: tile.bar.dotColor
        visible: tile.isLit
    }

    RunningDot {
        bar: tile.bar
        kind: tile.dot
        isFront: tile.isFront
        wantsAttention: tile.wantsAttention
        visible: tile.dot !== TileModel.NoDot || tile.wantsAttention
    }

    Badge {
        bar: tile.bar
        text: tile.badge
    }

    Behavior on travelX {
        enabled: tile.bar.travels
        Travel { bar: tile.bar }
    }

    NumberAnimation {
        id: rising

        target: tile
        property: "rise"
        from: 7
        to: 0
        duration: 220
        easing.type: Easing.OutCubic
    }

    Travel {
        id: flying

        bar: tile.bar
        target: tile
        property: "flight"
        from: tile.flightX
        to: 0
    }

    LaunchPulse on breath {
        running: tile.isLaunching && !tile.bar.appearance.reducesMotion
    }

    // Started once: bound to the bar it would be stopped half-way when tiles cease to travel.
    Component.onCompleted: {
        if (!bar.travels) return;
        if (flightX !== 0)
            flying.start();
        else
            rising.start();
    }

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: status
    Accessible.focusable: true
    Accessible.onPressAction: bar.click(index, Qt.LeftButton, Qt.NoModifier)
}
