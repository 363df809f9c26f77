#include "adapters/x11/DesktopTest.h"

namespace larkspan::x11 {

using qt::runUntil;

// Screens, panels, the wallpaper, and desktops where something is missing.

TEST(SurroundingsTest, WithoutAWindowManagerMappedWindowsAreListed) {
    PrivateServer server;
    const DesktopUnderTest desktop(server.display());
    EXPECT_EQ(
        desktop.reports,
        std::vector<std::string>{
            "larkspan: no window manager is running, so windows cannot be hidden or minimised"});
    TestClient client(server.display());
    const auto window = client.open({.title = "Alone", .className = "Alone"});
    const auto menu = client.open({.isOverrideRedirect = true});
    ASSERT_TRUE(runUntil([&] { return desktop.isOnScreen(window); }));
    EXPECT_EQ(desktop.title(window), "Alone");
    EXPECT_FALSE(desktop.isListed(menu));
    const auto other = desktop.open(client, {.className = "Other"});
    EXPECT_EQ(desktop.server().windowList(WindowListOption::all)->front().number, other);
    EXPECT_TRUE(desktop.applications().activate(*desktop.entry(window)->ownerPID));
    EXPECT_TRUE(runUntil([&] {
        return desktop.frontmost() == "x11:Alone" &&
               desktop.server().windowList(WindowListOption::all)->front().number == window;
    }));
    EXPECT_FALSE(desktop.applications().hide(*desktop.entry(window)->ownerPID));
    client.destroy(window);
    EXPECT_TRUE(runUntil([&] { return !desktop.isListed(window); }));
}

TEST(SurroundingsTest, WindowsAreKeptWhenTheWindowManagerChanges) {
    PrivateServer server;
    const DesktopUnderTest desktop(server.display());
    TestClient client(server.display());
    const auto window = desktop.open(client, {});
    server.startManager();
    ASSERT_TRUE(runUntil([&] { return !client.numbers(window, "WM_STATE").empty(); }));
    EXPECT_TRUE(runUntil([&] {
        return desktop.isOnScreen(window) &&
               desktop.platform().applications.hide(*desktop.entry(window)->ownerPID);
    }));
    EXPECT_TRUE(runUntil([&] { return !desktop.isOnScreen(window); }));
    desktop.platform().applications.activate(*desktop.entry(window)->ownerPID);
    ASSERT_TRUE(runUntil([&] { return desktop.isOnScreen(window); }));
    server.stopManager();
    EXPECT_TRUE(runUntil([&] { return desktop.isOnScreen(window); }));
    EXPECT_EQ(desktop.server().managedDisplaySpaces()->size(), 1u);
}

TEST(SurroundingsTest, WithoutRandrTheRootWindowIsTheOnlyScreen) {
    PrivateServer server({"-extension", "RANDR"});
    const DesktopUnderTest desktop(server.display());
    const auto screens = desktop.platform().screens.screens();
    ASSERT_EQ(screens.size(), 1u);
    EXPECT_EQ(screens[0].frame, (Rect{0, 0, 1280, 720}));
    EXPECT_EQ(screens[0].visibleFrame, screens[0].frame);
    EXPECT_NE(screens[0].display, 0u);
}

TEST(SurroundingsTest, ALostServerIsReportedAndNothingHangs) {
    PrivateServer server;
    DesktopUnderTest desktop(server.display());
    auto client = std::make_unique<TestClient>(server.display());
    const auto window = client->open({});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); }));
    const auto element = desktop.element(window);
    server.kill();
    ASSERT_TRUE(runUntil([&] { return !desktop.gone.empty(); }));
    EXPECT_EQ(desktop.gone,
              std::vector<std::string>{"larkspan: the connection to the X server was lost"});
    // Reads return the last state, and requests have no effect.
    EXPECT_TRUE(desktop.isListed(window));
    desktop.platform().accessibility.performAction(element, "AXRaise");
    desktop.applications().activate(*desktop.entry(window)->ownerPID);
    desktop.platform().dockStrip.hold(50);
    EXPECT_FALSE(desktop.desktop->desktopPicture().under({0, 0, 10, 10}));
    QCoreApplication::processEvents();
    EXPECT_EQ(desktop.gone.size(), 1u);
}

TEST(SurroundingsTest, ScreensFollowTheStripPanelsAndTheDesktopsScale) {
    PrivateServer server;
    TestClient client(server.display());
    client.setText(client.root(), "RESOURCE_MANAGER", "STRING",
                   "Xft.antialias:\t1\nXft.dpi:\t192\n");
    const DesktopUnderTest desktop(server.display());
    auto& screens = desktop.platform().screens;
    EXPECT_EQ(screens.screens()[0].scale, 2);
    EXPECT_EQ(screens.screens()[0].frame, (Rect{0, 0, 640, 360}));

    int calls = 0;
    const auto subscription = screens.subscribe([&] { ++calls; });
    desktop.platform().dockStrip.hold(50);
    EXPECT_EQ(screens.screens()[0].visibleFrame, (Rect{0, 50, 640, 310}));
    EXPECT_TRUE(runUntil([&] { return calls == 1; }));

    const auto panel = client.open({.className = "Panel", .type = "DOCK"});
    client.setNumbers(panel, "_NET_WM_STRUT_PARTIAL", "CARDINAL",
                      {0, 0, 40, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
    EXPECT_TRUE(runUntil([&] {
        return screens.screens()[0].visibleFrame == Rect{0, 50, 640, 290};
    }));
    client.destroy(panel);
    EXPECT_TRUE(runUntil([&] {
        return screens.screens()[0].visibleFrame == Rect{0, 50, 640, 310};
    }));
    desktop.platform().dockStrip.release();
    EXPECT_EQ(screens.screens()[0].visibleFrame, screens.screens()[0].frame);
}

TEST(SurroundingsTest, MonitorsAddedByTheUserAreFollowed) {
    PrivateServer server;
    server.startManager();
    const DesktopUnderTest desktop(server.display());
    auto& screens = desktop.platform().screens;
    const auto whole = screens.screens().front();
    TestClient client(server.display());
    const auto window = desktop.open(client, {.x = 700, .y = 100});

    int calls = 0;
    const auto subscription = screens.subscribe([&] { ++calls; });
    client.setMonitor("left", {0, 0, 640, 720});
    client.setMonitor("right", {640, 0, 640, 720});
    ASSERT_TRUE(runUntil([&] {
        const auto now = screens.screens();
        return std::any_of(now.begin(), now.end(),
                           [](const auto& each) { return each.displayIdentifier == "right"; });
    }));
    const auto spaceOnRight = [&] {
        const auto displays = *desktop.server().managedDisplaySpaces();
        for (const auto& display : displays)
            if (display.displayIdentifier == "right") return display.spaces[0].id64.value();
        return SpaceId{0};
    };
    EXPECT_TRUE(runUntil([&] { return desktop.isOnSpace(window, spaceOnRight()); }));
    const int callsBefore = calls;
    client.deleteMonitor("left");
    client.deleteMonitor("right");
    EXPECT_TRUE(runUntil([&] { return screens.screens() == std::vector{whole}; }));
    EXPECT_GT(calls, callsBefore);
    EXPECT_FALSE(desktop.isOnSpace(window, spaceOnRight()));
}

TEST(SurroundingsTest, APanelIsADockThatReservesAndReleasesItsStrip) {
    PrivateServer server;
    const DesktopUnderTest desktop(server.display());
    TestClient client(server.display());
    const auto panel = client.open({.className = "Larkspan"});
    ASSERT_TRUE(runUntil([&] { return client.isViewable(panel); }));
    client.setNumbers(panel, "WM_PROTOCOLS", "ATOM",
                      {client.atom("WM_DELETE_WINDOW"), client.atom("WM_TAKE_FOCUS")});
    client.sync();

    auto& dressing = desktop.desktop->panelDressing();
    dressing.dress(panel);
    const auto screen = desktop.platform().screens.screens().front();
    dressing.reserveStrip(panel, screen, 60);
    ASSERT_TRUE(runUntil([&] { return !client.numbers(panel, "_NET_WM_STRUT_PARTIAL").empty(); }));
    EXPECT_EQ(client.numbers(panel, "_NET_WM_STRUT_PARTIAL"),
              (std::vector<std::uint32_t>{0, 0, 0, 60, 0, 0, 0, 0, 0, 0, 0, 1279}));
    EXPECT_EQ(client.numbers(panel, "_NET_WM_STRUT"), (std::vector<std::uint32_t>{0, 0, 0, 60}));
    EXPECT_EQ(client.numbers(panel, "_NET_WM_WINDOW_TYPE"),
              std::vector<std::uint32_t>{client.atom("_NET_WM_WINDOW_TYPE_DOCK")});
    EXPECT_EQ(client.numbers(panel, "_NET_WM_DESKTOP"), std::vector<std::uint32_t>{0xFFFFFFFF});
    EXPECT_EQ(client.numbers(panel, "WM_PROTOCOLS"),
              std::vector<std::uint32_t>{client.atom("WM_DELETE_WINDOW")});
    EXPECT_EQ(client.numbers(panel, "WM_HINTS").at(1), 0u);

    dressing.reserveStrip(panel, screen, 0);
    EXPECT_TRUE(runUntil([&] {
        return client.numbers(panel, "_NET_WM_STRUT_PARTIAL").empty() &&
               client.numbers(panel, "_NET_WM_STRUT").empty();
    }));
}

TEST(SurroundingsTest, TheStripIsReservedOnlyAboveNoOtherMonitor) {
    PrivateServer server;
    TestClient client(server.display());
    client.setMonitor("upper", {0, 0, 1280, 400});
    client.setMonitor("lower", {200, 400, 800, 320});
    client.sync();
    const DesktopUnderTest desktop(server.display());
    const auto panel = client.open({.className = "Larkspan"});
    client.sync();
    auto& dressing = desktop.desktop->panelDressing();
    const auto screens = desktop.platform().screens.screens();
    using Numbers = std::vector<std::uint32_t>;
    const auto isStrutOn = [&](const std::string& name, const Numbers& strut) {
        for (const auto& screen : screens)
            if (screen.displayIdentifier == name) dressing.reserveStrip(panel, screen, 50);
        return runUntil([&] { return client.numbers(panel, "_NET_WM_STRUT_PARTIAL") == strut; });
    };
    EXPECT_TRUE(isStrutOn("lower", {0, 0, 0, 50, 0, 0, 0, 0, 0, 0, 200, 999}));
    // The strut would cover the whole monitor below.
    EXPECT_TRUE(isStrutOn("upper", {}));
}

TEST(SurroundingsTest, ThePointerPassesThroughAPanelOutsideItsInputArea) {
    PrivateServer server;
    TestClient client(server.display());
    client.setText(client.root(), "RESOURCE_MANAGER", "STRING", "Xft.dpi:\t144\n");
    client.sync();
    const DesktopUnderTest desktop(server.display());
    const auto panel = client.open({});
    client.sync();
    desktop.desktop->panelDressing().setInputArea(panel, {10, 20, 101, 31});
    // A partly covered pixel belongs to the area.
    EXPECT_TRUE(runUntil([&] { return client.inputArea(panel) == Rect{15, 30, 152, 47}; }));
}

TEST(SurroundingsTest, TheWallpaperUnderAPanelIsReadAndTiled) {
    PrivateServer server;
    const DesktopUnderTest desktop(server.display());
    auto& picture = desktop.desktop->desktopPicture();
    EXPECT_FALSE(picture.under({0, 0, 4, 1}));
    int calls = 0;
    const auto subscription = picture.subscribe([&] { ++calls; });

    TestClient client(server.display());
    const auto pixmap = xcb_generate_id(client.raw());
    const auto context = xcb_generate_id(client.raw());
    const std::uint32_t blue = 0x0000FF, green = 0x00FF00;
    xcb_create_pixmap(client.raw(), 24, pixmap, client.root(), 4, 2);
    xcb_create_gc(client.raw(), context, pixmap, XCB_GC_FOREGROUND, &blue);
    const xcb_rectangle_t all{0, 0, 4, 2}, right{2, 0, 2, 2};
    xcb_poly_fill_rectangle(client.raw(), pixmap, context, 1, &all);
    xcb_change_gc(client.raw(), context, XCB_GC_FOREGROUND, &green);
    xcb_poly_fill_rectangle(client.raw(), pixmap, context, 1, &right);
    client.setNumbers(client.root(), "_XROOTPMAP_ID", "PIXMAP", {pixmap});
    ASSERT_TRUE(runUntil([&] { return calls == 1; }));

    const Bitmap half{4, 1, {0xFF0000FF, 0xFF0000FF, 0xFF00FF00, 0xFF00FF00}};
    EXPECT_EQ(picture.under({0, 0, 4, 1}), half);
    EXPECT_EQ(picture.under({400, 700, 4, 1}), half);
    EXPECT_FALSE(picture.isComposited());
    const auto compositor = client.open({});
    xcb_set_selection_owner(client.raw(), compositor, client.atom("_NET_WM_CM_S0"),
                            XCB_CURRENT_TIME);
    xcb_flush(client.raw());
    EXPECT_TRUE(runUntil([&] { return picture.isComposited(); }));
    EXPECT_EQ(calls, 2);
}

TEST(SurroundingsTest, AMissingDisplayIsReportedInOneLine) {
    qt::testApplication();
    qt::QtScheduler scheduler;
    const auto opened = X11Connection::open(":9876", scheduler);
    ASSERT_TRUE(std::holds_alternative<std::string>(opened));
    EXPECT_EQ(
        std::get<std::string>(opened),
        "larkspan: cannot open display \":9876\": there is no X server, or access was denied");
}

} // namespace larkspan::x11
