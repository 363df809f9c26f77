#pragma once

#include "platform/DockPreferences.h"

namespace larkspan::mac {

/// The Dock's preferences, through the system's preferences service; never through their file.
class MacDockPreferences final : public DockPreferences {
  public:
    bool synchronize() override;
    std::optional<PropertyValue> copyAppValue(std::string_view key) const override;
    void setAppValue(std::string_view key, PropertyValue value) override;
};

} // namespace larkspan::mac
