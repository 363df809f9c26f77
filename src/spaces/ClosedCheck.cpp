#include "spaces/ClosedCheck.h"

namespace larkspan {

namespace {

/// How long a check is valid, in seconds.
constexpr double memory = 30;

} // namespace

bool ClosedCheck::holds(const std::set<WindowId>& listedNow, double now) const {
    return listed == listedNow && now - time < memory;
}

} // namespace larkspan
