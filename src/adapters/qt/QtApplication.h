#pragma once

#include "platform/Handle.h"
#include "platform/HostApplication.h"

namespace larkspan::qt {

/// The running program on Qt's event loop. SIGTERM and SIGINT quit it, like `terminate`. Only one
/// may exist at a time. Create it after the QCoreApplication, which it does not own.
class QtApplication : public HostApplication {
  public:
    QtApplication();
    ~QtApplication() override;
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;

    void activate() override;
    void terminate() override;
    /// Names Qt's platform and, if there is one, the desktop environment.
    std::string description() const override;

  private:
    void catchSignals();

    Handle signalWatch_;
};

} // namespace larkspan::qt
