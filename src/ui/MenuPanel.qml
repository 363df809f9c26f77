import QtQuick
import Larkspan

/// The lines of a menu, as wide as the longest of them.
Rectangle {
    id: panel

    required property MenuWindow menu

    readonly property bool isDark: menu.appearance.isDark
    readonly property color ink: isDark ? "#ffffff" : "#171b24"

    implicitWidth: Math.max(140, lines.implicitWidth) + 12
    implicitHeight: lines.implicitHeight + 12
    radius: 10
    antialiasing: true
    color: isDark ? "#f52a2e37" : "#f8f9fafd"
    border.width: 1
    border.color: isDark ? "#3cffffff" : "#34141c2c"

    Column {
        id: lines

        objectName: "lines"

        x: 6
        y: 6

        Repeater {
            model: panel.menu.lines
            delegate: MenuRow {
                menu: panel.menu
                ink: panel.ink
                rowWidth: panel.width - 12
            }
        }
    }

    Accessible.role: Accessible.PopupMenu
    Accessible.name: "Menu"
}
