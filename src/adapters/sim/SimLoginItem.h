#pragma once

#include "platform/LoginItem.h"

namespace larkspan::sim {

class SimLoginItem final : public LoginItem {
  public:
    Status status() const override { return current; }
    bool registerItem() override { return change(Status::enabled); }
    bool unregisterItem() override {
        return current != Status::notRegistered && change(Status::notRegistered);
    }
    void openSystemSettings() override { ++settingsOpened; }

    Status current = Status::notRegistered;
    /// Whether the system refuses to register and unregister.
    bool refuses = false;
    int settingsOpened = 0;

  private:
    bool change(Status status) {
        if (!refuses) current = status;
        return !refuses;
    }
};

} // namespace larkspan::sim
