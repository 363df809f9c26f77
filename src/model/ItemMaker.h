#pragma once

#include "model/DockItem.h"
#include "platform/Workspace.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace larkspan {

/// Creates the items of the bar: their names, paths and icons. An icon is looked up once and cached
/// while its tile is shown. Main thread only.
class ItemMaker {
  public:
    explicit ItemMaker(Workspace& workspace)
        : workspace_(workspace) {}

    /// The item of a running app, or of one that is pinned as `id`. Absent if it is not running and
    /// there is no such application.
    std::optional<DockItem> make(std::string id, const RunningApplication* app, bool isPinned);
    /// Removes the cached icons of all other items.
    void keepIcons(const std::set<std::string_view>& ids);

  private:
    std::optional<std::string> urlOf(const std::string& id, const RunningApplication* app) const;
    ImageRef icon(const DockItem& item, const RunningApplication* app);

    Workspace& workspace_;
    std::map<std::string, ImageRef> icons_;
};

} // namespace larkspan
