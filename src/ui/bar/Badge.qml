import QtQuick
import Larkspan

/// The label that an app puts on its icon, such as the number of unread messages.
Rectangle {
    id: badge

    required property BarViewModel bar
    required property string text

    readonly property int pad: Math.round(height * 0.3)

    visible: text !== ""
    height: Math.max(12, Math.round(bar.iconSize * 0.36))
    width: Math.max(height, label.width + 2 * pad)
    radius: height / 2
    // Over the corner of the icon, as far as the tile has room for it.
    x: Math.round(Math.min(parent.width - width, (parent.width + bar.iconSize) / 2 + 3 - width))
    y: Math.max(bar.glass.y + 1, bar.iconTop - 3)
    color: "#d92b2b"
    border.width: 1
    border.color: Qt.rgba(1, 1, 1, 0.35)
    antialiasing: true

    Text {
        id: label

        anchors.centerIn: parent
        width: Math.min(implicitWidth, badge.bar.tileWidth - 2 * badge.pad)
        text: badge.text
        textFormat: Text.PlainText
        elide: Text.ElideRight
        maximumLineCount: 1
        color: "#ffffff"
        font.pixelSize: Math.round(badge.height * 0.72)
        font.weight: Font.DemiBold
    }
}
