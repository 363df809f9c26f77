#pragma once

#include "platform/Accessibility.h"
#include "platform/Geometry.h"
#include "platform/Identifiers.h"

#include <optional>
#include <string>
#include <vector>

namespace larkspan {

/// An app's icon on the system Dock.
struct DockIcon {
    /// The path of the app.
    std::string path;
    /// Display coordinates (y downwards).
    Rect frame;
    /// The text of its label; empty if there is none.
    std::string badge;

    bool operator==(const DockIcon&) const = default;
};

/// Reads the app icons of the system Dock through Accessibility. A read makes several calls to the
/// Dock for each icon: do it off the main thread, one at a time.
class DockItemsReader {
  public:
    explicit DockItemsReader(const Accessibility& accessibility)
        : accessibility_(accessibility) {}

    /// All values of each icon, in the Dock's order; absent if the Dock does not respond.
    std::optional<std::vector<DockIcon>> read(ProcessId dock);
    /// The icons of the last `read` with their current frames; absent if one of them is gone or the
    /// Dock does not respond.
    std::optional<std::vector<DockIcon>> readFrames();

  private:
    struct Item {
        AXElementRef element;
        DockIcon icon;
    };

    bool findItems(ProcessId dock);
    AXElementRef listOf(const AXElementRef& application) const;
    bool addItem(const AXElementRef& element);
    AXElementRef patient(AXElementRef element) const;

    const Accessibility& accessibility_;
    std::vector<Item> items_;
};

/// Which icons of a Dock at the bottom of the screen are in the air, by index: those that are
/// higher than the lowest one.
std::vector<std::size_t> liftedIcons(const std::vector<DockIcon>& icons);

} // namespace larkspan
