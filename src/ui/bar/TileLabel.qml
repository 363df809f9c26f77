import QtQuick
import Larkspan

/// The name of a tile.
Plate {
    id: label

    property alias text: name.text

    implicitWidth: Math.min(name.implicitWidth, 320) + 22
    implicitHeight: name.implicitHeight + 11
    cornerRadius: 8

    Text {
        id: name

        anchors.centerIn: parent
        width: Math.min(implicitWidth, 320)
        elide: Text.ElideMiddle
        maximumLineCount: 1
        textFormat: Text.PlainText
        color: label.ink
        font.pixelSize: 13
        font.weight: Font.Medium
        renderType: Text.NativeRendering
    }
}
