import QtQuick
import Larkspan

/// How things on the bar go to their new places: the spring that came with the change.
NumberAnimation {
    required property BarViewModel bar

    duration: bar.travelTime
    easing.type: Easing.BezierSpline
    easing.bezierCurve: bar.travelCurve
}
