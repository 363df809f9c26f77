#pragma once

#include "platform/StatusBar.h"

#include <list>
#include <memory>
#include <string_view>

namespace larkspan::sim {

class SimStatusBar final : public StatusBar {
  public:
    Handle show(StatusItem item) override;

    /// The items in the status bar, in the order they were added.
    const std::list<StatusItem>& items() const { return *items_; }
    /// Chooses the menu item with that title in the first menu that has one; returns false if there
    /// is none, or if it is disabled.
    bool choose(std::string_view title) const;

  private:
    std::shared_ptr<std::list<StatusItem>> items_ = std::make_shared<std::list<StatusItem>>();
};

} // namespace larkspan::sim
