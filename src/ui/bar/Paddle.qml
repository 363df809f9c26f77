import QtQuick
import Larkspan

/// The button at an end of a bar that scrolls.
Item {
    id: paddle

    required property BarViewModel bar
    required property color ink
    /// A BarViewModel.Direction.
    required property int direction

    readonly property bool isAtLeft: direction === BarViewModel.ToTheLeft
    readonly property bool canScroll: isAtLeft ? bar.scrollX > 0 : bar.scrollX < bar.scrollRange

    visible: bar.scrolls
    width: 26
    height: parent.height

    Text {
        anchors.centerIn: parent
        text: paddle.isAtLeft ? "‹" : "›"
        color: paddle.ink
        opacity: paddle.canScroll ? 0.8 : 0.2
        font.pixelSize: 24
        renderType: Text.NativeRendering
    }

    TapHandler {
        enabled: paddle.canScroll
        onTapped: paddle.bar.scrollPage(paddle.direction)
    }

    Accessible.role: Accessible.Button
    Accessible.name: isAtLeft ? "Scroll left" : "Scroll right"
    Accessible.onPressAction: bar.scrollPage(direction)
}
