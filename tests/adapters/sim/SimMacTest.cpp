#include "adapters/sim/SimMac.h"

#include <gmock/gmock.h>

namespace larkspan::sim {
namespace {

using testing::ElementsAre;

std::vector<WindowId> onScreen(SimMac& mac) {
    std::vector<WindowId> ids;
    const auto list = mac.platform().windowServer.windowList(17);
    for (const auto& entry : *list) {
        if (entry.layer == 0) ids.push_back(*entry.number);
    }
    return ids;
}

TEST(SimMacTest, HidingTheFrontAppBringsTheNextOneForward) {
    SimMac mac;
    const auto notes = mac.launch("org.example.notes");
    const auto note = mac.openWindow(notes);
    const auto mail = mac.launch("org.example.mail");
    const auto letter = mac.openWindow(mail);
    EXPECT_THAT(onScreen(mac), ElementsAre(letter, note));

    mac.hide(mail);
    EXPECT_EQ(mac.frontmost(), notes);
    EXPECT_THAT(onScreen(mac), ElementsAre(note));

    mac.activate(mail);
    EXPECT_THAT(onScreen(mac), ElementsAre(letter, note));
}

} // namespace
} // namespace larkspan::sim
