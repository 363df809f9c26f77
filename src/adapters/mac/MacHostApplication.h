#pragma once

#include "adapters/qt/QtApplication.h"

namespace larkspan::mac {

/// The running program: without a tile in the Dock and without a menu bar. Quits through Qt's event
/// loop, also when the user logs out. Create it after the QGuiApplication.
class MacHostApplication final : public qt::QtApplication {
  public:
    MacHostApplication();

    void activate() override;
};

} // namespace larkspan::mac
