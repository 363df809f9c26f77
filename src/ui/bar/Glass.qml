import QtQuick
import Larkspan

/// The glass under the tiles, as wide as they need it.
GlassItem {
    id: glass

    required property BarViewModel bar

    readonly property rect pane: bar.glass
    property int paneX: pane.x
    property int paneWidth: pane.width

    x: paneX - margin
    y: pane.y
    width: paneWidth + 2 * margin
    height: pane.height + margin
    margin: bar.isBand || bar.cutsCorners ? 0 : 4
    radius: bar.radius
    isBand: bar.isBand
    isDark: bar.appearance.isDark
    isFrosted: bar.isFrosted
    isOpaque: bar.appearance.increasesContrast || bar.cutsCorners
    hasStrongEdges: bar.appearance.increasesContrast
    fillsCorners: bar.cutsCorners
    backdrop: bar.backdrop
    surroundings: bar.surroundings

    Behavior on paneX {
        enabled: glass.bar.travels
        Travel { bar: glass.bar }
    }

    Behavior on paneWidth {
        enabled: glass.bar.travels
        Travel { bar: glass.bar }
    }
}
