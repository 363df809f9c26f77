import QtQuick
import Larkspan

/// What the lines of a menu and the name of a tile stand on.
Rectangle {
    id: plate

    required property Appearance appearance
    /// Without a compositor the window's shape cuts the corners, and whatever of them is left
    /// unpainted is black.
    property bool cutsCorners: false
    required property real cornerRadius

    readonly property bool isOpaque: cutsCorners || appearance.increasesContrast
    readonly property color ink: appearance.isDark ? "#ffffff" : "#171b24"

    radius: cutsCorners ? 0 : cornerRadius
    antialiasing: true
    color: appearance.isDark ? (isOpaque ? "#2a2e37" : "#f52a2e37")
                             : (isOpaque ? "#f9fafd" : "#f8f9fafd")

    Rectangle {
        anchors.fill: parent
        radius: plate.cornerRadius
        antialiasing: true
        color: "transparent"
        border.width: 1
        border.color: Qt.rgba(plate.ink.r, plate.ink.g, plate.ink.b,
                              plate.appearance.increasesContrast ? 0.8 : 0.22)
    }
}
