#pragma once

#include "platform/Handle.h"
#include "platform/HostApplication.h"

namespace larkspan::qt {

/// The running program on Qt's run loop. SIGTERM and SIGINT end it as `terminate` does. Only one
/// may exist at a time; made after the QCoreApplication, which stays its maker's.
class QtApplication : public HostApplication {
  public:
    QtApplication();
    ~QtApplication() override;
    QtApplication(const QtApplication&) = delete;
    QtApplication& operator=(const QtApplication&) = delete;

    void activate() override;
    void terminate() override;
    /// Names the platform of the toolkit and, where there is one, the desktop environment as well.
    std::string description() const override;

  private:
    void catchSignals();

    Handle signalWatch_;
};

} // namespace larkspan::qt
