#pragma once

#include "model/ClickModifiers.h"

#include <Qt>

namespace larkspan::ui {

// Which keys and buttons stand for a Mac's on this desktop. On X11: Alt or Super for Option, since
// a window manager may keep Alt with the mouse for itself; Control for Command; and, as there is
// usual, the middle button or Shift for another instance.

ClickModifiers clickModifiers(Qt::MouseButton button, Qt::KeyboardModifiers keys);
bool isOptionHeld(Qt::KeyboardModifiers keys);
/// Whether the key itself is (one of) those that stand for Option.
bool isOptionKey(int key);

} // namespace larkspan::ui
