#include "model/WindowAnimator.h"

namespace larkspan {

void WindowAnimator::hide(ProcessId pid, const Rect&) {
    applications_.hide(pid);
}

bool WindowAnimator::show(ProcessId, const Rect&) {
    return false;
}

} // namespace larkspan
