#include "adapters/x11/DesktopTest.h"

namespace larkspan::x11 {

using qt::runUntil;

/// A window manager that sends its windows no events of its own.
class SilentManager : public TestClient {
  public:
    explicit SilentManager(const std::string& display)
        : TestClient(display) {
        const auto self = open({.isOverrideRedirect = true});
        for (const auto window : {root(), self})
            setNumbers(window, "_NET_SUPPORTING_WM_CHECK", "WINDOW", {self});
    }

    /// Lists the window as managed.
    WindowId manage() {
        const auto window = open({.width = 100, .height = 100});
        listed_.push_back(window);
        setNumbers(root(), "_NET_CLIENT_LIST", "WINDOW", listed_);
        return window;
    }
    /// Puts the window in a frame around another one, as some window managers do.
    WindowId putInFrame(WindowId window) {
        const auto outer = open({.isOverrideRedirect = true, .x = 0, .y = 0});
        const auto inner = open({.isOverrideRedirect = true});
        xcb_reparent_window(raw(), inner, outer, 0, 0);
        xcb_reparent_window(raw(), window, inner, 10, 20);
        sync();
        return outer;
    }

  private:
    std::vector<WindowId> listed_;
};

class WindowsTest : public OnManagedServer {
  protected:
    SpaceId space(std::size_t number) const {
        return desktop.server().managedDisplaySpaces()->at(0).spaces.at(number).id64.value();
    }
    SpaceId currentSpace() const {
        return desktop.server().managedDisplaySpaces()->at(0).currentSpace->id64.value();
    }
};

TEST(WindowFrameTest, AWindowMovesWithItsFrameWithoutAnEvent) {
    PrivateServer server;
    SilentManager manager(server.display());
    const auto early = manager.manage();
    const auto frameOfEarly = manager.putInFrame(early);
    const DesktopUnderTest desktop(server.display());
    const auto late = manager.manage();
    const auto isAt = [&](WindowId window, double x, double y) {
        const auto entry = desktop.entry(window);
        return entry && *entry->bounds == Rect{x, y, 100, 100};
    };
    ASSERT_TRUE(isAt(early, 10, 20));
    ASSERT_TRUE(runUntil([&] { return isAt(late, 40, 40); }));
    const auto frameOfLate = manager.putInFrame(late);
    ASSERT_TRUE(runUntil([&] { return isAt(late, 10, 20); }));

    manager.move(frameOfEarly, 500, 300);
    EXPECT_TRUE(runUntil([&] { return isAt(early, 510, 320); }));
    manager.move(frameOfLate, 400, 100);
    EXPECT_TRUE(runUntil([&] { return isAt(late, 410, 120); }));
}

TEST_F(WindowsTest, AWindowThatDeclinesTheFocusCanBeFrontmost) {
    const auto clock = open({.className = "Clock", .takesKeyboard = false});
    const auto writer = client.open({.className = "Writer"});
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Writer"; }));

    desktop.applications().activate(owner(clock));
    EXPECT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Clock"; }));
    client.ask(writer, "_NET_ACTIVE_WINDOW", {2, 0, 0});
    EXPECT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Writer"; }));
    desktop.applications().activate(owner(clock));
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Clock"; }));
    desktop.applications().hide(owner(clock));
    EXPECT_TRUE(runUntil([&] { return desktop.frontmost() != "x11:Clock"; }));
}

TEST_F(WindowsTest, AFullScreenWindowHasTheBoundsOfItsDisplay) {
    const auto window = open();
    client.ask(window, "_NET_WM_STATE", {1, client.atom("_NET_WM_STATE_FULLSCREEN")});
    const auto screen = desktop.platform().screens.screens().front();
    EXPECT_TRUE(runUntil([&] { return *desktop.entry(window)->bounds == screen.bounds; }));
    EXPECT_TRUE(attribute<bool>(window, "AXFullScreen"));
}

TEST_F(WindowsTest, KindsOfWindowsHaveTheirLayers) {
    struct Case {
        const char* type;
        int layer;
        const char* subrole;
    };
    for (const auto& [type, layer, subrole] : {Case{"NORMAL", 0, "AXStandardWindow"},
                                               {"DIALOG", 0, "AXDialog"},
                                               {"UTILITY", 3, "AXFloatingWindow"},
                                               {"SPLASH", 3, "AXFloatingWindow"}}) {
        const auto window = client.open({.type = type});
        ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); })) << type;
        EXPECT_EQ(desktop.entry(window)->layer, layer) << type;
        EXPECT_EQ(attribute<std::string>(window, "AXSubrole"), subrole) << type;
        client.destroy(window);
    }
    const auto panel = client.open({.className = "Panel", .type = "DOCK"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(panel); }));
    EXPECT_GT(*desktop.entry(panel)->layer, 0);
    EXPECT_FALSE(desktop.running("x11:Panel"));
}

TEST_F(WindowsTest, MenusAndOurOwnWindowsAreNeverListed) {
    const auto menu = client.open({.isOverrideRedirect = true});
    const auto ours = client.open({.pid = static_cast<std::uint32_t>(getpid())});
    const auto window = client.open({});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); }));
    EXPECT_FALSE(desktop.isListed(menu));
    EXPECT_FALSE(desktop.isListed(ours));
}

TEST_F(WindowsTest, ApplicationIsRegularWhileItHasAnOrdinaryWindow) {
    const auto isRegular = [&] {
        const auto application = desktop.running("x11:Palette");
        return application && application->activationPolicy == ActivationPolicy::regular;
    };
    bool isRegularInCallback = false;
    const auto subscription = desktop.platform().workspace.subscribe(
        [&](const WorkspaceEvent&) { isRegularInCallback = isRegular(); });
    const auto palette = client.open({.className = "Palette", .type = "UTILITY"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(palette); }));
    EXPECT_FALSE(isRegular());
    const auto window = client.open({.className = "Palette"});
    EXPECT_TRUE(runUntil([&] { return isRegularInCallback; }));
    client.ask(window, "_NET_WM_STATE", {1, client.atom("_NET_WM_STATE_SKIP_TASKBAR")});
    EXPECT_TRUE(runUntil([&] { return !isRegularInCallback; }));
}

TEST_F(WindowsTest, AppWithAnUrgentWindowWantsAttention) {
    constexpr std::uint32_t urgencyHint = 256;
    const auto urgent = client.open({.className = "Urgent"});
    client.open({.className = "Front"});
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Front"; }));
    auto& notices = desktop.platform().notices;
    int changes = 0;
    const auto watch = notices.subscribe([&] { ++changes; });
    client.setNumbers(urgent, "WM_HINTS", "WM_HINTS", {urgencyHint, 0, 0, 0, 0, 0, 0, 0, 0});
    ASSERT_TRUE(runUntil([&] { return !notices.notices().empty(); }));
    EXPECT_EQ(notices.notices(), (std::vector<AppNotice>{{"x11:Urgent", "", true}}));
    client.setNumbers(urgent, "WM_HINTS", "WM_HINTS", {0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_TRUE(runUntil([&] { return notices.notices().empty(); }));
    EXPECT_EQ(changes, 2);
}

TEST_F(WindowsTest, TitlesOfEveryEncodingAreReadAndFollowed) {
    const auto window = client.open({.title = ""});
    client.setText(window, "WM_NAME", "STRING", "Caf\xE9");
    EXPECT_TRUE(runUntil([&] { return desktop.title(window) == "Café"; }));
    client.setText(window, "WM_NAME", "COMPOUND_TEXT", "\x1b%G\xE2\x82\xAC\x1b%@ 5\xE9");
    EXPECT_TRUE(runUntil([&] { return desktop.title(window) == "€ 5é"; }));
    client.setText(window, "_NET_WM_NAME", "UTF8_STRING", "half \xE2\x82 sign");
    EXPECT_TRUE(runUntil([&] { return desktop.title(window) == "half \uFFFD\uFFFD sign"; }));
    client.setText(window, "_NET_WM_NAME", "UTF8_STRING", std::string(1'000'000, 'x'));
    EXPECT_TRUE(runUntil([&] { return desktop.title(window).size() > 1000; }));
    EXPECT_LT(desktop.title(window).size(), 10'000u);
}

TEST_F(WindowsTest, ClientsMayDieWhileTheyAreRead) {
    for (int round = 0; round < 20; ++round) {
        TestClient shortLived(ManagedServer::display());
        const auto window = shortLived.open({.className = "Gone"});
        shortLived.setText(window, "_NET_WM_NAME", "UTF8_STRING", "Late title");
        if (round % 2) desktop.scheduler.post([] {});
        if (round % 3 == 0) runUntil([&] { return desktop.isListed(window); });
    }
    const auto window = client.open({.title = "Still here"});
    EXPECT_TRUE(runUntil([&] { return desktop.title(window) == "Still here"; }));
    EXPECT_TRUE(runUntil([&] { return !desktop.running("x11:Gone"); }));
    EXPECT_EQ(desktop.server().windowList(WindowListOption::all)->size(), 1u);
}

TEST_F(WindowsTest, ABurstOfChangesIsAnnouncedOnce) {
    const auto window = open();
    int announced = 0;
    const auto subscription = desktop.server().subscribe([&] { ++announced; });
    // The X server gets everything before the loop runs again.
    for (int i = 0; i < 50; ++i)
        client.setText(window, "_NET_WM_NAME", "UTF8_STRING", std::to_string(i));
    client.sync();
    EXPECT_TRUE(runUntil([&] { return desktop.title(window) == "49"; }));
    EXPECT_LE(announced, 2);
}

TEST_F(WindowsTest, ExistingWindowsAreRead) {
    const auto window = client.open({.title = "Earlier"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); }));
    const DesktopUnderTest later(ManagedServer::display());
    EXPECT_EQ(later.title(window), "Earlier");
    EXPECT_TRUE(later.isOnScreen(window));
}

TEST_F(WindowsTest, AMovedWindowsBoundsAreUpdated) {
    const auto window = open();
    const auto before = *desktop.entry(window)->bounds;
    client.move(window, 400, 300);
    EXPECT_TRUE(runUntil([&] { return desktop.entry(window)->bounds->x >= 399; }));
    EXPECT_EQ(desktop.entry(window)->bounds->width, before.width);
}

TEST_F(WindowsTest, NewAndActivatedWindowsComeToTheFront) {
    const auto first = client.open({.className = "First"});
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:First"; }));
    const auto second = client.open({.className = "Second"});
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Second"; }));
    EXPECT_EQ(desktop.server().windowList(WindowListOption::all)->front().number, second);

    desktop.applications().activate(*desktop.entry(first)->ownerPID);
    EXPECT_TRUE(runUntil([&] {
        return desktop.frontmost() == "x11:First" &&
               desktop.server().windowList(WindowListOption::all)->front().number == first;
    }));
}

TEST_F(WindowsTest, AMinimisedWindowIsListedOnNoSpace) {
    const auto window = open();
    const auto element = desktop.element(window);
    auto& accessibility = desktop.platform().accessibility;
    ASSERT_EQ(accessibility.setAttribute(element, "AXMinimized", true), AXError::success);
    ASSERT_TRUE(
        runUntil([&] { return !desktop.isOnScreen(window) && !client.isViewable(window); }));
    EXPECT_TRUE(desktop.isListed(window));
    EXPECT_FALSE(desktop.isOnSpace(window, currentSpace()));
    EXPECT_TRUE(*accessibility.attribute(element, "AXMinimized").as<bool>());

    accessibility.setAttribute(element, "AXMinimized", false);
    EXPECT_TRUE(runUntil([&] { return desktop.isOnScreen(window); }));
    EXPECT_TRUE(client.isViewable(window));
}

TEST_F(WindowsTest, StickyWindowIsOnEverySpace) {
    const auto window = open();
    client.ask(window, "_NET_WM_DESKTOP", {0xFFFFFFFF, 2});
    EXPECT_TRUE(runUntil([&] {
        return desktop.isOnSpace(window, space(0)) && desktop.isOnSpace(window, space(1));
    }));
    EXPECT_TRUE(desktop.isOnScreen(window));
}

TEST_F(WindowsTest, AnElementOfAClosedWindowIsInvalid) {
    const auto window = client.open({});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); }));
    const auto element = desktop.element(window);
    client.destroy(window);
    ASSERT_TRUE(runUntil([&] { return !desktop.isListed(window); }));
    auto& accessibility = desktop.platform().accessibility;
    EXPECT_EQ(accessibility.attribute(element, "AXTitle").error, AXError::invalidUIElement);
    EXPECT_EQ(accessibility.performAction(element, "AXRaise"), AXError::invalidUIElement);
}

TEST_F(WindowsTest, AWindowIsListedFromMappingToWithdrawal) {
    const auto window = open({.title = "Letter"});
    const auto entry = *desktop.entry(window);
    EXPECT_EQ(entry.layer, 0);
    EXPECT_EQ(entry.alpha, 1.0);
    EXPECT_EQ(entry.name, "Letter");
    // The frame counts as part of the window; the manager sets it with a delay.
    EXPECT_TRUE(runUntil([&] { return desktop.entry(window)->bounds->height > 200; }));

    client.withdraw(window);
    EXPECT_TRUE(runUntil([&] { return !desktop.isListed(window); }));
}

TEST_F(WindowsTest, AWindowOfAnotherDesktopIsOnItsSpaceOnly) {
    const auto window = open();
    client.ask(window, "_NET_WM_DESKTOP", {1, 2});
    ASSERT_TRUE(runUntil([&] { return !desktop.isOnScreen(window); }));
    EXPECT_FALSE(desktop.isOnSpace(window, space(0)));
    EXPECT_TRUE(desktop.isOnSpace(window, space(1)));
    // Not on screen, but not minimised either.
    EXPECT_FALSE(*desktop.platform()
                      .accessibility.attribute(desktop.element(window), "AXMinimized")
                      .as<bool>());

    client.ask(client.root(), "_NET_CURRENT_DESKTOP", {1, 0});
    EXPECT_TRUE(runUntil([&] { return currentSpace() == space(1) && desktop.isOnScreen(window); }));
    client.ask(client.root(), "_NET_CURRENT_DESKTOP", {0, 0});
    EXPECT_TRUE(runUntil([&] { return currentSpace() == space(0); }));
}

} // namespace larkspan::x11
