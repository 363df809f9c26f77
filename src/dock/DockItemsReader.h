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
    /// Where the app lies, as a file path.
    std::string path;
    /// Display coordinates (y downwards).
    Rect frame;
    /// What its label says; empty without one.
    std::string badge;

    bool operator==(const DockIcon&) const = default;
};

/// Reads the app icons of the system Dock through Accessibility. A read calls the Dock several
/// times for each icon: make it off the main thread, one at a time.
class DockItemsReader {
  public:
    explicit DockItemsReader(const Accessibility& accessibility)
        : accessibility_(accessibility) {}

    /// Everything of each icon, in the Dock's order; absent when the Dock does not answer.
    std::optional<std::vector<DockIcon>> read(ProcessId dock);
    /// The icons of the last `read` with their frames of now; absent when one of them has gone or
    /// the Dock does not answer.
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

/// Which of the icons of a Dock at the bottom of the screen are in the air, by their place in the
/// list: those that stand higher than the lowest.
std::vector<std::size_t> liftedIcons(const std::vector<DockIcon>& icons);

} // namespace larkspan
