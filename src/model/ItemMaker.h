#pragma once

#include "model/DockItem.h"
#include "platform/Workspace.h"

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace larkspan {

/// Builds the items of the bar: their names, addresses and icons. An icon is looked up once and
/// kept for as long as its tile is shown. Main thread only.
class ItemMaker {
  public:
    explicit ItemMaker(Workspace& workspace)
        : workspace_(workspace) {}

    /// The item of an app that runs, or that is kept on the bar as `id`. Absent when it does not
    /// run and no such application is to be found.
    std::optional<DockItem> make(std::string id, const RunningApplication* app, bool isPinned);
    /// Forgets the icons of all other items.
    void keepIcons(const std::set<std::string_view>& ids);

  private:
    std::optional<std::string> urlOf(const std::string& id, const RunningApplication* app) const;
    ImageRef icon(const DockItem& item, const RunningApplication* app);

    Workspace& workspace_;
    std::map<std::string, ImageRef> icons_;
};

} // namespace larkspan
