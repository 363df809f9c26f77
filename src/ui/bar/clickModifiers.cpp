#include "ui/bar/clickModifiers.h"

namespace larkspan::ui {

namespace {

// On a Mac the toolkit calls the Control key Meta, and Command Control.
#ifdef Q_OS_MACOS
constexpr bool isMac = true;
#else
constexpr bool isMac = false;
#endif

} // namespace

ClickModifiers clickModifiers(Qt::MouseButton button, Qt::KeyboardModifiers keys) {
    return {.option = isOptionHeld(keys),
            .command = keys.testFlag(Qt::ControlModifier),
            .newInstance =
                !isMac && (button == Qt::MiddleButton || keys.testFlag(Qt::ShiftModifier))};
}

bool isOptionHeld(Qt::KeyboardModifiers keys) {
    return keys.testFlag(Qt::AltModifier) || (!isMac && keys.testFlag(Qt::MetaModifier));
}

bool isOptionKey(int key) {
    const bool isSuper = key == Qt::Key_Super_L || key == Qt::Key_Super_R || key == Qt::Key_Meta;
    return key == Qt::Key_Alt || (!isMac && isSuper);
}

} // namespace larkspan::ui
