#include "diagnostics/DiagnosticsLog.h"

#include <utility>

namespace larkspan {

void DiagnosticsLog::write(std::string_view category, std::string text) {
    const Line line{now(), std::string(category), std::move(text)};
    lines_.push_back(line);
    if (lines_.size() > capacity) lines_.pop_front();
    // A copy, since a subscriber may write lines too.
    written_.emit(line);
}

} // namespace larkspan
