import QtQuick
import Larkspan

/// The button at an end of a bar that scrolls.
Item {
    id: paddle

    required property BarScene scene
    required property color ink
    /// -1 scrolls towards the left end, 1 towards the right.
    required property int direction

    readonly property bool canScroll: direction < 0 ? scene.scrollX > 0
                                                    : scene.scrollX < scene.scrollRange

    visible: scene.scrolls
    width: 26
    height: parent.height

    Text {
        anchors.centerIn: parent
        text: paddle.direction < 0 ? "‹" : "›"
        color: paddle.ink
        opacity: paddle.canScroll ? 0.8 : 0.2
        font.pixelSize: 24
        renderType: Text.NativeRendering
    }

    TapHandler {
        enabled: paddle.canScroll
        onTapped: paddle.scene.scrollPage(paddle.direction)
    }

    Accessible.role: Accessible.Button
    Accessible.name: direction < 0 ? "Scroll left" : "Scroll right"
    Accessible.onPressAction: scene.scrollPage(direction)
}
