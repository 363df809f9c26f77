import QtQuick
import Larkspan

/// The lines of a menu, as wide as the longest of them.
Plate {
    id: panel

    required property MenuWindow menu

    appearance: menu.appearance
    cornerRadius: 10
    implicitWidth: Math.max(140, lines.implicitWidth) + 12
    implicitHeight: lines.implicitHeight + 12

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
