#pragma once

#include "model/Animation.h"

#include <QList>

namespace larkspan::ui {

/// A spring as the views animate it: for so long, along this curve.
struct SpringCurve {
    int milliseconds = 0;
    /// Cubic segments from (0, 0) to (1, 1), six numbers each, as a Bézier easing takes them.
    QList<qreal> bezier;
    bool operator==(const SpringCurve&) const = default;
};

/// The curve of a spring let go at 0 with its rest at 1, cut off where it has come to rest.
SpringCurve springCurve(const Animation& animation);

} // namespace larkspan::ui
