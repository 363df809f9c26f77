#pragma once

#include "platform/DockPreferences.h"

namespace larkspan::mac {

/// The Dock's preferences, by way of the system's preferences service; the file behind it is never
/// touched.
class MacDockPreferences final : public DockPreferences {
  public:
    bool synchronize() override;
    std::optional<PropertyValue> copyAppValue(std::string_view key) const override;
    void setAppValue(std::string_view key, PropertyValue value) override;
};

} // namespace larkspan::mac
