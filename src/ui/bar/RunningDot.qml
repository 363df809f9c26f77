import QtQuick
import Larkspan

/// Says that an app runs: a dot below its icon, a longer one for the app in front.
Rectangle {
    id: dot

    required property BarScene scene
    /// Which of the two colors it takes: 1 or 2.
    required property int kind
    required property bool isFront
    required property bool wantsAttention

    anchors.horizontalCenter: parent.horizontalCenter
    y: scene.iconTop + scene.iconSize + Math.max(2, Math.round((scene.glass.y + scene.glass.height
       - scene.iconTop - scene.iconSize - height) / 2) - 1)
    width: isFront ? 14 : wantsAttention ? 8 : 4
    height: 4
    radius: 2
    antialiasing: true
    color: wantsAttention ? "#ff8a1f" : kind === 2 ? scene.dotGray : scene.dotColor

    Behavior on width {
        enabled: dot.scene.travels
        NumberAnimation { duration: 160; easing.type: Easing.OutCubic }
    }
}
