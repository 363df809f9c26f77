import QtQuick
import Larkspan

/// The sign that an app is being opened: its tile breathes, well below three times a second, and
/// comes to rest at 1.
SequentialAnimation {
    loops: Animation.Infinite
    alwaysRunToEnd: true

    NumberAnimation {
        to: 0.45
        duration: 420
        easing.type: Easing.InOutSine
    }

    NumberAnimation {
        to: 1
        duration: 420
        easing.type: Easing.InOutSine
    }
}
