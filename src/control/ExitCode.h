#pragma once

namespace larkspan {

/// What the program ends with; scripts rely on the numbers.
enum class ExitCode {
    succeeded = 0,
    /// No instance is running, the desktop cannot be used, or an expectation was not met.
    failed = 1,
    /// The request is invalid or cannot be carried out; nothing was changed.
    rejected = 2,
};

} // namespace larkspan
