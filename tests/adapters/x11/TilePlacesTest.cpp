#include "adapters/x11/DesktopTest.h"

namespace larkspan::x11 {

using qt::runUntil;
using Numbers = std::vector<std::uint32_t>;

class TilePlacesTest : public OnManagedServer {
  protected:
    void setTiles(const std::map<ProcessId, Rect>& tiles) {
        const auto display = desktop.platform().screens.screens().front().display;
        desktop.desktop->panelDressing().setTiles(display, tiles);
    }
    bool isAt(WindowId window, const Numbers& place) {
        return runUntil([&] { return client.numbers(window, "_NET_WM_ICON_GEOMETRY") == place; });
    }
    /// How often the position on a window was written since the last call.
    int takeWrites() {
        client.sync();
        int writes = 0;
        const auto name = client.atom("_NET_WM_ICON_GEOMETRY");
        while (auto* event = xcb_poll_for_event(client.raw())) {
            const bool isProperty = (event->response_type & 0x7f) == XCB_PROPERTY_NOTIFY;
            if (isProperty && reinterpret_cast<xcb_property_notify_event_t*>(event)->atom == name)
                ++writes;
            std::free(event);
        }
        return writes;
    }
};

TEST_F(TilePlacesTest, EveryWindowOfAnAppHasItsTilesPosition) {
    const auto letter = open({.className = "Writer"});
    const auto picture = open({.className = "Painter"});
    setTiles({{owner(letter), {500, 660, 52, 60}}});
    EXPECT_TRUE(isAt(letter, {500, 660, 52, 60}));
    EXPECT_EQ(client.numbers(picture, "_NET_WM_ICON_GEOMETRY"), Numbers{});
    const auto second = open({.className = "Writer"});
    EXPECT_TRUE(isAt(second, {500, 660, 52, 60})) << "also one that opens later";
    setTiles({});
    EXPECT_TRUE(isAt(letter, {}));
    EXPECT_TRUE(isAt(second, {})) << "removed with the bar";
}

TEST_F(TilePlacesTest, APropertyIsWrittenOnlyIfTheTileMoved) {
    const auto letter = open({.className = "Writer"});
    const std::uint32_t properties = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(client.raw(), letter, XCB_CW_EVENT_MASK, &properties);
    client.sync();
    const auto pid = owner(letter);
    setTiles({{pid, {500, 660, 52, 60}}});
    ASSERT_TRUE(isAt(letter, {500, 660, 52, 60}));
    EXPECT_EQ(takeWrites(), 1);
    open({.className = "Painter"});
    setTiles({{pid, {500, 660, 52, 60}}, {pid + 1, {552, 660, 52, 60}}});
    setTiles({{pid, {474, 660, 52, 60}}});
    ASSERT_TRUE(isAt(letter, {474, 660, 52, 60}));
    EXPECT_EQ(takeWrites(), 1);
}

} // namespace larkspan::x11
