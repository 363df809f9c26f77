#include "diagnostics/DiagnosticsLog.h"

#include <utility>

namespace larkspan {

void DiagnosticsLog::write(std::string_view category, std::string text) {
    lines_.push_back({scheduler_.wallClock(), std::string(category), std::move(text)});
    if (lines_.size() > capacity) lines_.pop_front();
    if (sink) sink(lines_.back());
}

} // namespace larkspan
