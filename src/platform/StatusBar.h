#pragma once

#include "platform/Handle.h"
#include "platform/Menu.h"

#include <string>

namespace larkspan {

/// An icon in the system's status bar.
struct StatusItem {
    /// The name of a system symbol, such as "dock.rectangle".
    std::string symbol;
    std::string accessibilityDescription;
    Menu menu;
};

/// The part of the screen where programs show their own icons. Main thread only.
class StatusBar {
  public:
    virtual ~StatusBar() = default;
    /// Shows the item until its handle ends.
    virtual Handle show(StatusItem item) = 0;
};

} // namespace larkspan
