import QtQuick
import Larkspan

/// One app, or the Trash.
TileItem {
    id: tile

    required property BarScene scene
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

    readonly property bool isLit: scene.litTile === index
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
    width: scene.tileWidth
    height: parent.height
    icons: scene.icons
    iconSize: scene.iconSize
    iconTop: scene.iconTop
    opacity: (pressed ? 0.6 : isQuiet && !isLit ? 0.55 : 1) * breath

    onHoveredChanged: scene.hover(index, hovered)
    onClicked: (button, keys) => scene.clickTile(index, button, keys)
    onMenuRequested: scene.menuRequested(index)

    TileHighlight {
        tile: tile
        ink: tile.ink
        hasKeyboard: tile.scene.hasKeyboard
        focusColor: tile.scene.dotColor
        visible: tile.isLit
    }

    RunningDot {
        scene: tile.scene
        kind: tile.dot
        isFront: tile.isFront
        wantsAttention: tile.wantsAttention
        visible: tile.dot !== 0 || tile.wantsAttention
    }

    Badge {
        scene: tile.scene
        text: tile.badge
    }

    Behavior on travelX {
        enabled: tile.scene.travels
        Travel { scene: tile.scene }
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

        scene: tile.scene
        target: tile
        property: "flight"
        from: tile.flightX
        to: 0
    }

    LaunchPulse on breath {
        running: tile.isLaunching && !tile.scene.appearance.reducesMotion
    }

    // Started once: bound to the scene it would be stopped half-way when tiles cease to travel.
    Component.onCompleted: {
        if (!scene.travels) return;
        if (flightX !== 0)
            flying.start();
        else
            rising.start();
    }

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.description: status
    Accessible.focusable: true
    Accessible.onPressAction: scene.clickTile(index, Qt.LeftButton, Qt.NoModifier)
}
