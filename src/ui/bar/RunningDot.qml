import QtQuick
import Larkspan

/// Says that an app runs: a dot below its icon, a longer one for the app in front.
Rectangle {
    id: dot

    required property BarViewModel bar
    /// A TileModel.Dot.
    required property int kind
    required property bool isFront
    required property bool wantsAttention

    anchors.horizontalCenter: parent.horizontalCenter
    y: bar.iconTop + bar.iconSize + Math.max(2, Math.round((bar.glass.y + bar.glass.height
       - bar.iconTop - bar.iconSize - height) / 2) - 1)
    width: isFront ? 14 : wantsAttention ? 8 : 4
    height: 4
    radius: 2
    antialiasing: true
    color: wantsAttention ? "#ff8a1f" : kind === TileModel.GrayDot ? bar.dotGray : bar.dotColor

    Behavior on width {
        enabled: dot.bar.travels
        NumberAnimation { duration: 160; easing.type: Easing.OutCubic }
    }
}
