import QtQuick
import Larkspan

/// The bar of one screen: the glass, the tiles on it, and the paddles of a bar that scrolls.
Item {
    id: root

    required property BarViewModel bar

    readonly property bool isDark: bar.appearance.isDark
    readonly property color ink: isDark ? "#ffffff" : "#10141c"

    Glass {
        bar: root.bar
    }

    MouseArea {
        id: emptyGlass

        x: root.bar.glass.x
        width: root.bar.glass.width
        height: root.height
        acceptedButtons: Qt.RightButton
        onPressed: event => root.bar.openBarMenu(emptyGlass.x + event.x)
    }

    Item {
        id: view

        x: root.bar.viewX
        width: root.bar.viewWidth
        height: root.height
        clip: root.bar.scrolls

        Behavior on x {
            enabled: root.bar.travels
            Travel { bar: root.bar }
        }

        Item {
            id: content

            x: -root.bar.scrollX
            height: parent.height

            Behavior on x {
                enabled: root.bar.scrolls && !root.bar.appearance.reducesMotion
                NumberAnimation { duration: 180; easing.type: Easing.OutCubic }
            }

            Repeater {
                model: root.bar.marks
                delegate: GroupMark {
                    bar: root.bar
                    ink: root.ink
                }
            }

            Repeater {
                model: root.bar.tiles
                delegate: Tile {
                    bar: root.bar
                    ink: root.ink
                }
            }
        }
    }

    Paddle {
        bar: root.bar
        ink: root.ink
        direction: BarViewModel.ToTheLeft
        anchors.right: view.left
    }

    Paddle {
        bar: root.bar
        ink: root.ink
        direction: BarViewModel.ToTheRight
        anchors.left: view.right
    }

    WheelHandler {
        acceptedDevices: PointerDevice.Mouse | PointerDevice.TouchPad
        enabled: root.bar.scrolls
        onWheel: event => root.bar.scrollBy(-(event.angleDelta.y + event.angleDelta.x) / 2)
    }

    HoverHandler {
        onHoveredChanged: root.bar.setPointerInside(hovered)
    }

    Accessible.role: Accessible.ToolBar
    Accessible.name: "Larkspan"
}
