import QtQuick
import Larkspan

/// The bar of one screen: the glass, the tiles on it, and the paddles of a bar that scrolls.
Item {
    id: bar

    required property BarScene scene

    readonly property bool isDark: scene.appearance.isDark
    readonly property color ink: isDark ? "#ffffff" : "#10141c"

    Glass {
        scene: bar.scene
    }

    MouseArea {
        id: emptyGlass

        x: bar.scene.glass.x
        width: bar.scene.glass.width
        height: bar.height
        acceptedButtons: Qt.RightButton
        onPressed: event => bar.scene.barMenuRequested(emptyGlass.x + event.x)
    }

    Item {
        id: view

        x: bar.scene.viewX
        width: bar.scene.viewWidth
        height: bar.height
        clip: bar.scene.scrolls

        Behavior on x {
            enabled: bar.scene.travels
            Travel { scene: bar.scene }
        }

        Item {
            id: content

            x: -bar.scene.scrollX
            height: parent.height

            Behavior on x {
                enabled: bar.scene.scrolls && !bar.scene.appearance.reducesMotion
                NumberAnimation { duration: 180; easing.type: Easing.OutCubic }
            }

            Repeater {
                model: bar.scene.marks
                delegate: GroupMark {
                    scene: bar.scene
                    ink: bar.ink
                }
            }

            Repeater {
                model: bar.scene.tiles
                delegate: Tile {
                    scene: bar.scene
                    ink: bar.ink
                }
            }
        }
    }

    Paddle {
        scene: bar.scene
        ink: bar.ink
        direction: -1
        anchors.right: view.left
    }

    Paddle {
        scene: bar.scene
        ink: bar.ink
        direction: 1
        anchors.left: view.right
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        enabled: bar.scene.scrolls
        onWheel: event => bar.scene.scrollBy(-(event.angleDelta.y + event.angleDelta.x) / 2)
    }

    HoverHandler {
        onHoveredChanged: bar.scene.setPointerInside(hovered)
    }

    Accessible.role: Accessible.ToolBar
    Accessible.name: "Larkspan"
}
