import QtQuick
import Larkspan

/// The contents of the permissions window: why the two permissions are needed, which of them are
/// missing, and a button to grant each.
FocusScope {
    id: view

    required property PermissionsViewModel viewModel

    /// Of the lower corners, for a window that does not clip them.
    property real cornerRadius: 0

    readonly property Appearance appearance: viewModel.appearance
    readonly property color ink: appearance.isDark ? "#ffffff" : "#16181d"
    readonly property color paleInk: Qt.rgba(ink.r, ink.g, ink.b,
                                             appearance.increasesContrast ? 1 : 0.66)
    readonly property real margin: 28

    width: 480
    height: 320
    focus: true
    LayoutMirroring.enabled: Qt.application.layoutDirection === Qt.RightToLeft
    LayoutMirroring.childrenInherit: true

    Rectangle {
        anchors.fill: parent
        radius: view.cornerRadius
        color: view.appearance.isDark ? "#26282d" : "#f6f6f8"
    }

    Text {
        id: heading

        anchors {
            left: parent.left
            right: parent.right
            bottom: accessibility.top
            margins: view.margin
            bottomMargin: 20
        }
        text: "Larkspan needs two permissions"
        color: view.ink
        font.pixelSize: 21
        font.weight: Font.DemiBold
        horizontalAlignment: Text.AlignLeft
        renderType: Text.NativeRendering
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }

    PermissionRow {
        id: accessibility

        place: 0
        title: "Accessibility"
        reason: "To list, hide and show other apps' windows, and to read badges from the Dock."
        isGranted: view.viewModel.hasAccessibility
        appearance: view.appearance
        ink: view.ink
        paleInk: view.paleInk
        margin: view.margin
        onGrantRequested: view.viewModel.grantAccessibility()
    }

    PermissionRow {
        id: screenRecording

        place: 1
        title: "Screen Recording"
        reason: "For window previews and the animation when an app hides into its icon."
        isGranted: view.viewModel.hasScreenRecording
        appearance: view.appearance
        ink: view.ink
        paleInk: view.paleInk
        margin: view.margin
        onGrantRequested: view.viewModel.grantScreenRecording()
    }

    Rectangle {
        anchors {
            left: parent.left
            right: parent.right
            top: screenRecording.bottom
            leftMargin: view.margin
            rightMargin: view.margin
        }
        height: 1
        color: screenRecording.ruleColor
    }

    Text {
        anchors {
            left: parent.left
            right: parent.right
            bottom: parent.bottom
            leftMargin: view.margin
            rightMargin: view.margin
            bottomMargin: screenRecording.bottomMargin
        }
        text: "If a permission still shows as missing after you allow it, quit Larkspan and open it again."
        color: view.paleInk
        font.pixelSize: 12
        lineHeight: 1.15
        wrapMode: Text.WordWrap
        horizontalAlignment: Text.AlignLeft
        renderType: Text.NativeRendering
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }

    Keys.onEscapePressed: viewModel.close()

    Accessible.role: Accessible.Pane
    Accessible.name: heading.text
}
