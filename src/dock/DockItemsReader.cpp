#include "dock/DockItemsReader.h"

#include "dock/fileUrl.h"

#include <algorithm>
#include <utility>

namespace larkspan {

namespace {

/// The seconds to wait for a busy Dock. It is read often, so the next read will do.
constexpr float patience = 0.05F;
/// The points by which a bouncing icon must be above its line.
constexpr double leastLift = 2;

/// Whether the call reached the Dock.
bool isAnswer(AXError error) {
    return error == AXError::success || error == AXError::noValue ||
           error == AXError::attributeUnsupported;
}

} // namespace

std::optional<std::vector<DockIcon>> DockItemsReader::read(ProcessId dock) {
    if (!findItems(dock)) return std::nullopt;
    return readFrames();
}

std::optional<std::vector<DockIcon>> DockItemsReader::readFrames() {
    std::vector<DockIcon> icons;
    for (auto& [element, icon] : items_) {
        const auto frame = accessibility_.attribute(element, "AXFrame");
        if (!frame.as<Rect>()) return std::nullopt;
        icon.frame = *frame.as<Rect>();
        icons.push_back(icon);
    }
    return icons;
}

bool DockItemsReader::findItems(ProcessId dock) {
    items_.clear();
    const auto list = listOf(patient(accessibility_.createApplication(dock)));
    if (!list) return false;
    const auto children = accessibility_.attribute(patient(list), "AXChildren");
    const auto* elements = children.as<std::vector<AXElementRef>>();
    return elements &&
           std::ranges::all_of(*elements, [this](const auto& element) { return addItem(element); });
}

AXElementRef DockItemsReader::listOf(const AXElementRef& application) const {
    const auto children = accessibility_.attribute(application, "AXChildren");
    for (const auto& child : children.valueOr(std::vector<AXElementRef>())) {
        const auto role = accessibility_.attribute(patient(child), "AXRole");
        if (role.valueOr(std::string()) == "AXList") return child;
    }
    return nullptr;
}

/// Returns false if the Dock stopped responding.
bool DockItemsReader::addItem(const AXElementRef& element) {
    const auto subrole = accessibility_.attribute(patient(element), "AXSubrole");
    if (subrole.valueOr(std::string()) != "AXApplicationDockItem") return isAnswer(subrole.error);
    const auto url = accessibility_.attribute(element, "AXURL");
    auto path = pathOfFileUrl(url.valueOr(std::string()));
    if (!path) return isAnswer(url.error);
    const auto label = accessibility_.attribute(element, "AXStatusLabel");
    if (!isAnswer(label.error)) return false;
    items_.push_back({element, {*std::move(path), {}, label.valueOr(std::string())}});
    return true;
}

/// A time-out applies to one element only.
AXElementRef DockItemsReader::patient(AXElementRef element) const {
    accessibility_.setMessagingTimeout(element, patience);
    return element;
}

std::vector<std::size_t> liftedIcons(const std::vector<DockIcon>& icons) {
    std::vector<std::size_t> lifted;
    if (icons.empty()) return lifted;
    double line = icons.front().frame.maxY();
    for (const auto& icon : icons)
        line = std::max(line, icon.frame.maxY());
    for (std::size_t i = 0; i < icons.size(); ++i)
        if (line - icons[i].frame.maxY() > leastLift) lifted.push_back(i);
    return lifted;
}

} // namespace larkspan
