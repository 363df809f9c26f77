#include "tools/trash/TrashWatch.h"

#include "adapters/sim/SimMac.h"

#include <gtest/gtest.h>

namespace larkspan {
namespace {

TEST(Trash, CountsOnlyWhatTheUserThrewAway) {
    struct Case {
        std::optional<std::size_t> entries;
        bool holdsDesktopServicesFile;
        bool isEmpty;
    };
    for (const auto& [entries, holdsFile, isEmpty] :
         {Case{0, false, true}, Case{1, false, false}, Case{1, true, true}, Case{2, true, false},
          Case{std::nullopt, false, true}, Case{std::nullopt, true, true}}) {
        sim::SimMac mac;
        mac.setTrash(entries);
        mac.world().trashHoldsDesktopServicesFile = holdsFile;
        EXPECT_EQ(isTrashEmpty(mac.trash), isEmpty)
            << entries.value_or(99) << (holdsFile ? " with its own file" : "");
    }
}

TEST(Trash, OpensFromItsMenu) {
    sim::SimMac mac;
    const auto menu = trashMenu(mac.trash);
    ASSERT_EQ(menu.size(), 1U);
    EXPECT_EQ(menu[0].title, "Open");
    menu[0].action();
    EXPECT_EQ(mac.world().opened.size(), 1U);
}

TEST(Trash, ItsChangesAreToldWhereAnnouncedAndPolledElsewhere) {
    for (const bool announces : {true, false}) {
        sim::SimMac mac;
        mac.setAnnouncesChanges(announces);
        std::vector<bool> told;
        const TrashWatch watch(mac.scheduler, mac.trash,
                               [&](bool isEmpty) { told.push_back(isEmpty); });
        mac.setTrash(1);
        mac.scheduler.runUntilIdle();
        EXPECT_EQ(told.back(), !announces) << "announces " << announces;
        mac.scheduler.runFor(2.1);
        EXPECT_FALSE(told.back());
        EXPECT_EQ(told.size(), 2U);
    }
}

} // namespace
} // namespace larkspan
