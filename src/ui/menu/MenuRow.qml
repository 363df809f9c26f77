import QtQuick
import Larkspan

/// One line of a menu.
Item {
    id: row

    required property MenuWindow menu
    required property color ink
    required property real rowWidth
    required property int index
    required property string title
    /// Takes its place while the Option key is held, or lets it go; the same where nothing does.
    required property string otherTitle
    /// A MenuModel.Kind.
    required property int kind
    required property bool isChoice
    /// A MenuModel.Mark.
    required property int mark
    required property int depth

    readonly property bool isSeparator: kind === MenuModel.Separator
    readonly property bool isHeading: kind === MenuModel.Heading || kind === MenuModel.Submenu
    readonly property bool isCurrent: menu.current === index

    // Room above a heading that has lines above it.
    readonly property int lead: kind === MenuModel.Heading && index > 0 ? 5 : 0

    // A column leaves out what has no width at all.
    implicitWidth: isSeparator ? 1 : Math.min(Math.max(label.implicitWidth, other.implicitWidth), 340) + label.x + 14
    implicitHeight: isSeparator ? 9 : Math.round(label.implicitHeight + 9) + lead
    // At least its own width: the menu measures its lines before it has a width itself.
    width: Math.max(implicitWidth, rowWidth)

    Rectangle {
        visible: row.isSeparator || row.isCurrent
        x: row.isSeparator ? 8 : 0
        y: row.isSeparator ? 4 : 0
        width: parent.width - 2 * x
        height: row.isSeparator ? 1 : parent.height
        radius: row.isSeparator ? 0 : 6
        antialiasing: true
        color: row.isSeparator ? Qt.rgba(row.ink.r, row.ink.g, row.ink.b, 0.14) : "#2f7ff2"
    }

    Text {
        visible: row.mark !== MenuModel.NoMark
        anchors.verticalCenter: parent.verticalCenter
        x: 7
        text: row.mark === MenuModel.Check ? "✓" : "◆"
        color: label.color
        font.pixelSize: row.mark === MenuModel.Check ? 12 : 9
        renderType: Text.NativeRendering
    }

    Text {
        id: label

        visible: !row.isSeparator
        anchors.verticalCenter: parent.verticalCenter
        anchors.verticalCenterOffset: row.lead / 2
        x: 22 + 12 * row.depth
        width: Math.min(implicitWidth, 340)
        text: row.title
        textFormat: Text.PlainText
        elide: Text.ElideMiddle
        maximumLineCount: 1
        color: row.isCurrent ? "#ffffff" : row.ink
        opacity: row.isHeading ? 0.55 : row.isChoice ? 1 : 0.4
        font.pixelSize: row.isHeading ? 11 : 13
        renderType: Text.NativeRendering
    }

    // Only measured, so that no line moves when the titles change places.
    Text {
        id: other

        visible: false
        text: row.otherTitle
        textFormat: Text.PlainText
        font: label.font
        renderType: label.renderType
    }

    HoverHandler {
        enabled: row.isChoice
        onHoveredChanged: row.menu.current = hovered ? row.index : -1
    }

    TapHandler {
        enabled: row.isChoice
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: row.menu.choose(row.index)
    }

    Accessible.role: isSeparator ? Accessible.Separator : Accessible.MenuItem
    Accessible.name: title
    Accessible.onPressAction: menu.choose(index)
}
