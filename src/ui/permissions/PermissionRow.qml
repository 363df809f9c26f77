import QtQuick
import Larkspan

/// One permission: whether it is granted, what it is for, and the button that requests it. The rows
/// are below each other, each under a rule.
Item {
    id: row

    required property int place
    required property string title
    required property string reason
    required property bool isGranted
    required property Appearance appearance
    required property color ink
    required property color paleInk
    required property real margin

    /// From one rule to the next, in points.
    readonly property real pitch: 84
    /// From the top of the window to the rule above the first row.
    readonly property real firstRule: 76
    /// Below everything under the rows.
    readonly property real bottomMargin: 20
    readonly property color ruleColor: Qt.rgba(ink.r, ink.g, ink.b,
                                               appearance.increasesContrast ? 0.8 : 0.13)
    readonly property string stateText: isGranted ? "Allowed" : "Missing"

    signal grantRequested()

    y: firstRule + place * pitch
    width: parent.width
    height: pitch

    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            top: parent.top
            leftMargin: row.margin
            rightMargin: row.margin
        }
        height: 1
        color: row.ruleColor
    }

    SymbolItem {
        id: symbol

        objectName: "symbol"
        anchors {
            left: parent.left
            leftMargin: row.margin
            verticalCenter: parent.verticalCenter
        }
        width: 28
        height: 28
        symbol: row.isGranted ? "checkmark.circle.fill" : "exclamationmark.circle.fill"
        color: row.isGranted ? (row.appearance.increasesContrast ? "#1c7a34" : "#30b350")
                             : (row.appearance.increasesContrast ? "#b04a00" : "#f5870a")
        Accessible.role: Accessible.Graphic
        Accessible.name: row.stateText
    }

    Column {
        anchors {
            left: symbol.right
            leftMargin: 16
            right: answer.left
            rightMargin: 20
            verticalCenter: parent.verticalCenter
        }
        spacing: 3

        Text {
            width: parent.width
            text: row.title
            color: row.ink
            font.pixelSize: 14
            font.weight: Font.DemiBold
            horizontalAlignment: Text.AlignLeft
            renderType: Text.NativeRendering
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Text {
            width: parent.width
            text: row.reason
            color: row.paleInk
            font.pixelSize: 12
            lineHeight: 1.15
            wrapMode: Text.WordWrap
            horizontalAlignment: Text.AlignLeft
            renderType: Text.NativeRendering
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    /// The button while the permission is missing, then the state.
    Item {
        id: answer

        anchors {
            right: parent.right
            rightMargin: row.margin
            verticalCenter: parent.verticalCenter
        }
        width: button.implicitWidth
        height: button.implicitHeight

        Text {
            anchors {
                right: parent.right
                verticalCenter: parent.verticalCenter
            }
            visible: row.isGranted
            text: row.stateText
            color: row.paleInk
            font.pixelSize: 13
            renderType: Text.NativeRendering
            Accessible.ignored: true
        }

        PushButton {
            id: button

            objectName: "grant"
            anchors.fill: parent
            visible: !row.isGranted
            text: "Allow…"
            spokenName: "Allow " + row.title
            appearance: row.appearance
            onClicked: row.grantRequested()
        }
    }

    Accessible.role: Accessible.Grouping
    Accessible.name: title
    Accessible.description: stateText
}
