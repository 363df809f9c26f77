#pragma once

#include <string>

namespace larkspan {

/// The running program. Main thread only.
class HostApplication {
  public:
    virtual ~HostApplication() = default;
    /// Brings the program's own windows to the front.
    virtual void activate() = 0;
    /// Ends the run loop soon; the delegate's will-terminate runs before the process exits.
    virtual void terminate() = 0;
    /// One line for reports: the program, its version and the system.
    virtual std::string description() const = 0;
};

} // namespace larkspan
