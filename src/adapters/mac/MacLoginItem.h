#pragma once

#include "platform/LoginItem.h"

namespace larkspan::mac {

/// The system's login service for the program's own bundle. Without a bundle, for example in a
/// build folder, the status is `notFound` and nothing can be registered.
class MacLoginItem final : public LoginItem {
  public:
    MacLoginItem();

    Status status() const override;
    bool registerItem() override;
    bool unregisterItem() override;
    void openSystemSettings() override;
};

} // namespace larkspan::mac
