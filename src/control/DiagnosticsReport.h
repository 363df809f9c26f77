#pragma once

#include <string>

namespace larkspan {

class AppController;

/// What a user sends along with a question: what runs where, the screens, and every line that the
/// diagnostics log keeps, as text. Times are UTC. Main thread only.
std::string diagnosticsReport(const AppController& controller);

} // namespace larkspan
