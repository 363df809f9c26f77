#include "ui/parts/Appearance.h"

namespace larkspan::ui {

void Appearance::set(const Values& values) {
    if (values == values_) return;
    values_ = values;
    Q_EMIT changed();
}

} // namespace larkspan::ui
