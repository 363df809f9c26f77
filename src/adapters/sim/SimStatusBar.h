#pragma once

#include "platform/StatusBar.h"

#include <list>
#include <memory>
#include <string_view>

namespace larkspan::sim {

class SimStatusBar final : public StatusBar {
  public:
    Handle show(StatusItem item) override;

    /// What stands in the status bar, in the order it came.
    const std::list<StatusItem>& items() const { return *items_; }
    /// Chooses the line of that title in the first item whose menu has one; answers false when no
    /// menu has, or it is disabled.
    bool choose(std::string_view title) const;

  private:
    std::shared_ptr<std::list<StatusItem>> items_ = std::make_shared<std::list<StatusItem>>();
};

} // namespace larkspan::sim
