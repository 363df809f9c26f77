import QtQuick
import Larkspan

/// A button with a word on it, as wide as the word needs.
Rectangle {
    id: button

    required property string text
    /// What a screen reader says instead of the text.
    required property string spokenName
    required property Appearance appearance

    readonly property color ink: appearance.isDark ? "#ffffff" : "#16181d"
    readonly property color face: appearance.isDark ? "#54575f" : "#ffffff"

    signal clicked()

    implicitWidth: label.implicitWidth + 28
    implicitHeight: 26
    radius: 7
    antialiasing: true
    color: tap.pressed ? Qt.darker(face, appearance.isDark ? 1.3 : 1.12) : face
    border.width: 1
    border.color: Qt.rgba(ink.r, ink.g, ink.b, appearance.increasesContrast ? 0.8 : 0.18)
    activeFocusOnTab: true

    Rectangle {
        visible: button.activeFocus
        anchors.fill: parent
        anchors.margins: -3
        radius: button.radius + 3
        antialiasing: true
        color: "transparent"
        border.width: 3
        border.color: button.appearance.increasesContrast ? "#0a5ad6" : "#962f7ff2"
    }

    Text {
        id: label

        anchors.centerIn: parent
        text: button.text
        color: button.ink
        font.pixelSize: 13
        renderType: Text.NativeRendering
    }

    TapHandler {
        id: tap

        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: button.clicked()
    }

    Keys.onSpacePressed: clicked()
    Keys.onReturnPressed: clicked()
    Keys.onEnterPressed: clicked()

    Accessible.role: Accessible.Button
    Accessible.name: spokenName
    Accessible.focusable: true
    Accessible.onPressAction: clicked()
}
