#pragma once

#include "adapters/qt/QtApplication.h"

namespace larkspan::mac {

/// The running program: without a tile in the Dock and without a menu bar. Ends through Qt's run
/// loop, as it does when the user logs out. Made after the QGuiApplication.
class MacHostApplication final : public qt::QtApplication {
  public:
    MacHostApplication();

    void activate() override;
};

} // namespace larkspan::mac
