#include "bar/BarCover.h"

#include <algorithm>
#include <cmath>
#include <fmt/format.h>

namespace larkspan {
namespace {

bool holds(const std::vector<Rect>& frames, const Rect& screen) {
    return std::any_of(frames.begin(), frames.end(),
                       [&](const Rect& frame) { return isSameScreen(frame, screen); });
}

} // namespace

std::string_view nameOf(Cover cover) {
    switch (cover) {
    case Cover::none:
        return "none";
    case Cover::space:
        return "space";
    case Cover::window:
        return "window";
    }
    return {};
}

Cover coverOf(const Rect& screenFrame, const FullScreenState& fullScreen) {
    if (holds(fullScreen.spaces, screenFrame)) return Cover::space;
    if (holds(fullScreen.windows, screenFrame)) return Cover::window;
    return Cover::none;
}

bool isSameScreen(const Rect& one, const Rect& other) {
    return std::abs(one.x - other.x) <= 1 && std::abs(one.y - other.y) <= 1 &&
           std::abs(one.width - other.width) <= 1;
}

std::string describeFrames(const std::vector<Rect>& frames) {
    std::string text;
    for (const auto& frame : frames) {
        if (!text.empty()) text += ", ";
        text +=
            fmt::format("({:g}, {:g}, {:g}, {:g})", frame.x, frame.y, frame.width, frame.height);
    }
    return text;
}

} // namespace larkspan
