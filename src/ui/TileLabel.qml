import QtQuick
import Larkspan

/// The name of a tile.
Rectangle {
    id: label

    required property Appearance appearance
    property alias text: name.text

    implicitWidth: Math.min(name.implicitWidth, 320) + 22
    implicitHeight: name.implicitHeight + 11
    radius: 8
    antialiasing: true
    color: appearance.isDark ? "#f0303540" : "#f6fbfcfe"
    border.width: 1
    border.color: appearance.isDark ? "#38ffffff" : "#30141c2c"

    Text {
        id: name

        anchors.centerIn: parent
        width: Math.min(implicitWidth, 320)
        elide: Text.ElideMiddle
        maximumLineCount: 1
        textFormat: Text.PlainText
        color: label.appearance.isDark ? "#ffffff" : "#171b24"
        font.pixelSize: 13
        font.weight: Font.Medium
        renderType: Text.NativeRendering
    }
}
