#pragma once

#include "model/IconClick.h"
#include "model/ItemActions.h"
#include "model/ItemMenu.h"
#include "model/ModelOnMac.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <string>
#include <vector>

namespace larkspan {

/// The model with its clicks and menus on a simulated Mac that announces changes. Apps are named
/// by the last word of their identifiers.
class ModelWorld : public ModelOnMac {
  public:
    explicit ModelWorld(std::string_view displays = "1440x900")
        : ModelOnMac(displays) {
        mac.setAnnouncesChanges(true);
    }

    ProcessId launch(const std::string& name, const sim::LaunchOptions& options = {}) {
        return mac.launch("com.example." + name, options);
    }
    void settle() { mac.scheduler.runUntilIdle(); }

    static std::string shortName(const std::string& id) { return id.substr(id.rfind('.') + 1); }
    static std::string names(const std::vector<DockItem>& items) {
        std::vector<std::string> names;
        for (const auto& item : items)
            names.push_back(shortName(item.id));
        return fmt::format("{}", fmt::join(names, " "));
    }
    std::string pinned() const { return names(*store.pinnedItems()); }
    std::string background() const { return names(*store.backgroundItems()); }
    /// The groups in order, such as "notes mail | (music)"; those drawn as rings in parentheses.
    std::string groups() const {
        std::vector<std::string> texts;
        for (const auto& group : *store.windowAppGroups())
            texts.push_back(
                fmt::format(fmt::runtime(group.isRing ? "({})" : "{}"), names(group.items)));
        return fmt::format("{}", fmt::join(texts, " | "));
    }
    const DockItem& item(const std::string& name) const {
        for (const auto* items : {&*store.backgroundItems(), &*store.pinnedItems()})
            for (const auto& each : *items)
                if (shortName(each.id) == name) return each;
        for (const auto& group : *store.windowAppGroups())
            for (const auto& each : group.items)
                if (shortName(each.id) == name) return each;
        throw std::out_of_range("no tile " + name);
    }
    /// The log's lines of that category since the last call.
    std::vector<std::string> newLines(std::string_view category) {
        std::vector<std::string> lines;
        for (; linesSeen < log.lines().size(); ++linesSeen)
            if (log.lines()[linesSeen].category == category)
                lines.push_back(log.lines()[linesSeen].text);
        return lines;
    }

    ItemActions actions{store,
                        platform.scheduler,
                        platform.workspace,
                        platform.applications,
                        platform.accessibility,
                        platform.coreDock,
                        platform.loginItems};
    IconClick click{store,
                    actions,
                    platform.scheduler,
                    platform.workspace,
                    platform.applications,
                    platform.accessibility,
                    log};
    ItemMenu menu{store, actions, platform.scheduler, platform.accessibility};
    std::size_t linesSeen = 0;
};

} // namespace larkspan
