import QtQuick
import Larkspan

/// The glass under the tiles, as wide as they need it.
GlassItem {
    id: glass

    required property BarScene scene

    readonly property rect pane: scene.glass
    property int paneX: pane.x
    property int paneWidth: pane.width

    x: paneX - margin
    y: pane.y
    width: paneWidth + 2 * margin
    height: pane.height + margin
    margin: scene.isBand || scene.cutsCorners ? 0 : 4
    radius: scene.radius
    isBand: scene.isBand
    isDark: scene.appearance.isDark
    isFrosted: scene.isFrosted
    isOpaque: scene.appearance.increasesContrast || scene.cutsCorners
    hasStrongEdges: scene.appearance.increasesContrast
    fillsCorners: scene.cutsCorners
    backdrop: scene.backdrop
    surroundings: scene.surroundings

    Behavior on paneX {
        enabled: glass.scene.travels
        Travel { scene: glass.scene }
    }

    Behavior on paneWidth {
        enabled: glass.scene.travels
        Travel { scene: glass.scene }
    }
}
