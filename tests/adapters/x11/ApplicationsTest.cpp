#include "adapters/x11/DesktopTest.h"

#include <csignal>
#include <filesystem>

namespace larkspan::x11 {

using qt::runUntil;

namespace {

// `sleep` is used as an application without a window of its own.
const std::map<std::string, std::string> installed{
    {"org.example.Writer", "Name=Writer\nExec=sleep 60\nStartupWMClass=Writer\n"},
    {"painter", "Name=Painter\nExec=/nonexistent/painter\n"},
    {"folders",
     "Name=Folders\nExec=sleep 60\nMimeType=inode/directory;\nCategories=FileManager;\n"},
    {"pages", "Name=Pages\nExec=touch %k.started\nActions=other;new-window;\n"
              "[Desktop Action other]\nName=Other\nExec=touch %k.other\n"
              "[Desktop Action new-window]\nName=New Window\nExec=touch %k.window\n"}};

} // namespace

class ApplicationsTest : public OnManagedServer {
  protected:
    ApplicationsTest()
        : OnManagedServer(installed) {}
    std::vector<std::string> runningIdentifiers() const {
        std::vector<std::string> identifiers;
        for (const auto& application : desktop.platform().workspace.runningApplications())
            identifiers.push_back(application.bundleIdentifier.value_or("-"));
        return identifiers;
    }
};

TEST_F(ApplicationsTest, WindowsFindTheirDesktopEntryAndShareIt) {
    const auto first = client.open({.className = "Writer", .pid = 1});
    const auto second = client.open({.className = "Writer"});
    const auto other = client.open({.instance = "painter", .className = "Painter"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(other) && desktop.isListed(second); }));
    EXPECT_EQ(owner(first), owner(second));
    const auto writer = desktop.running("org.example.Writer");
    ASSERT_TRUE(writer);
    EXPECT_EQ(writer->localizedName, "Writer");
    EXPECT_EQ(writer->bundleURL, desktop.home.path("data/applications/org.example.Writer.desktop"));
    EXPECT_TRUE(desktop.running("painter"));
    EXPECT_EQ(runningIdentifiers().size(), 2u);
}

TEST_F(ApplicationsTest, AnotherInstanceUsesTheEntrysNewWindowAction) {
    const auto pages = desktop.home.path("data/applications/pages.desktop");
    ASSERT_TRUE(desktop.applications().openNewInstance(pages));
    EXPECT_TRUE(runUntil([&] { return std::filesystem::exists(pages + ".window"); }));
    EXPECT_FALSE(std::filesystem::exists(pages + ".started"));
    EXPECT_FALSE(std::filesystem::exists(pages + ".other"));
}

TEST_F(ApplicationsTest, DefaultFileManagerIsFinder) {
    client.open({.instance = "folders", .className = "Folders"});
    ASSERT_TRUE(runUntil([&] { return desktop.running(finderIdentifier).has_value(); }));
    EXPECT_EQ(desktop.platform().workspace.urlForApplication(finderIdentifier),
              desktop.home.path("data/applications/folders.desktop"));
}

TEST_F(ApplicationsTest, TwoClassesOfOneProcessAreTwoApplications) {
    const auto process = startProcess({"sleep", "60"});
    const auto pid = static_cast<std::uint32_t>(process);
    const auto red = open({.className = "Red", .pid = pid});
    const auto blue = client.open({.className = "Blue", .pid = pid});
    const auto grey = client.open({.className = "Grey"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(blue) && desktop.isListed(grey); }));
    EXPECT_EQ(owner(red), process);
    EXPECT_GE(owner(blue), 1 << 30);
    EXPECT_GE(owner(grey), 1 << 30);
    EXPECT_NE(owner(blue), owner(grey));
    endProcess(process, SIGKILL);
}

TEST_F(ApplicationsTest, WindowsWithoutAClassBelongToTheirProcess) {
    const auto one = client.open({.title = "One", .className = ""});
    // Of windows that are first seen together, the frontmost comes first.
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(one); }));
    const auto two = open({.title = "Two", .className = ""});
    const auto child = open({.className = "", .transientFor = one});
    EXPECT_NE(owner(one), owner(two));
    EXPECT_EQ(owner(child), owner(one));
    const auto running = desktop.platform().workspace.runningApplications();
    ASSERT_EQ(running.size(), 2u);
    EXPECT_EQ(running.front().localizedName, "One");
    EXPECT_FALSE(running.front().bundleIdentifier);
}

TEST_F(ApplicationsTest, AHiddenApplicationReturnsWithTheIconifiedWindows) {
    const auto shown = client.open({.className = "Writer"});
    const auto minimised = client.open({.className = "Writer"});
    ASSERT_TRUE(
        runUntil([&] { return desktop.isOnScreen(shown) && desktop.isOnScreen(minimised); }));
    client.iconify(minimised);
    ASSERT_TRUE(runUntil([&] { return !desktop.isOnScreen(minimised); }));

    std::vector<WorkspaceEvent::Kind> reported;
    const auto subscription = desktop.platform().workspace.subscribe(
        [&](const WorkspaceEvent& event) { reported.push_back(event.kind); });
    ASSERT_TRUE(desktop.applications().hide(owner(shown)));
    ASSERT_TRUE(runUntil([&] { return desktop.running("org.example.Writer")->isHidden; }));
    EXPECT_FALSE(desktop.isOnScreen(shown));
    EXPECT_EQ(
        std::count(reported.begin(), reported.end(), WorkspaceEvent::Kind::didHideApplication), 1);

    ASSERT_TRUE(desktop.applications().unhide(owner(shown)));
    EXPECT_TRUE(runUntil([&] { return desktop.isOnScreen(shown); }));
    EXPECT_FALSE(desktop.running("org.example.Writer")->isHidden);
    EXPECT_FALSE(desktop.isOnScreen(minimised));
    EXPECT_EQ(
        std::count(reported.begin(), reported.end(), WorkspaceEvent::Kind::didUnhideApplication),
        1);
}

TEST_F(ApplicationsTest, MinimisingIsNotHidingAndShowingAWindowEndsHiding) {
    const auto window = client.open({.className = "Writer"});
    const auto second = client.open({.className = "Writer"});
    ASSERT_TRUE(runUntil([&] { return desktop.isOnScreen(window) && desktop.isOnScreen(second); }));
    desktop.applications().hide(owner(window));
    ASSERT_TRUE(runUntil([&] { return desktop.running("org.example.Writer")->isHidden; }));
    client.map(second);
    EXPECT_TRUE(runUntil([&] { return !desktop.running("org.example.Writer")->isHidden; }));
    client.iconify(second);
    ASSERT_TRUE(runUntil([&] { return !desktop.isOnScreen(second); }));
    EXPECT_FALSE(desktop.running("org.example.Writer")->isHidden);
}

TEST_F(ApplicationsTest, LaunchedApplicationIsLaunchingUntilItsWindow) {
    const auto url = *desktop.platform().workspace.urlForApplication("org.example.Writer");
    ASSERT_TRUE(desktop.applications().open(url));
    ASSERT_TRUE(runUntil([&] { return desktop.running("org.example.Writer").has_value(); }));
    const auto launching = *desktop.running("org.example.Writer");
    EXPECT_FALSE(launching.isFinishedLaunching);

    const auto window = open({.className = "Writer"});
    EXPECT_TRUE(desktop.running("org.example.Writer")->isFinishedLaunching);
    EXPECT_EQ(owner(window), launching.pid);

    // Its process is still running, so the application is too. Without a window, a signal asks it
    // to quit.
    client.destroy(window);
    ASSERT_TRUE(runUntil([&] { return !desktop.isListed(window); }));
    ASSERT_TRUE(desktop.running("org.example.Writer"));
    EXPECT_TRUE(desktop.applications().terminate(launching.pid));
    EXPECT_TRUE(runUntil([&] { return !desktop.running("org.example.Writer"); }));
}

TEST_F(ApplicationsTest, AFailedLaunchIsReported) {
    const auto url = *desktop.platform().workspace.urlForApplication("painter");
    EXPECT_FALSE(desktop.applications().open(url));
    EXPECT_FALSE(desktop.reports.empty());
    EXPECT_FALSE(desktop.running("painter"));
}

TEST_F(ApplicationsTest, AWindowsIconIsDrawnAfterTheWindowIsGone) {
    const auto window = client.open({.className = "Iconic"});
    std::vector<std::uint32_t> icon{2, 2, 0x80FF0000, 0x80FF0000, 0x80FF0000, 0x80FF0000};
    client.setNumbers(window, "_NET_WM_ICON", "CARDINAL", icon);
    ASSERT_TRUE(runUntil([&] {
        const auto running = desktop.running("x11:Iconic");
        return running && running->icon;
    }));
    const auto image = desktop.running("x11:Iconic")->icon;
    const Bitmap drawn = image->bitmap(2);
    ASSERT_EQ(drawn.pixels.size(), 4u);
    EXPECT_EQ(drawn.pixels[0], 0x80800000u);
    client.destroy(window);
    ASSERT_TRUE(runUntil([&] { return !desktop.running("x11:Iconic"); }));
    EXPECT_EQ(image->bitmap(4).width, 4);
}

TEST_F(ApplicationsTest, ActivatingRaisesTheMainWindow) {
    const auto first = open({.title = "First", .className = "Writer"});
    client.open({.title = "Second", .className = "Writer"});
    const auto other = client.open({.className = "Other"});
    ASSERT_TRUE(runUntil([&] { return desktop.frontmost() == "x11:Other"; }));
    auto& accessibility = desktop.platform().accessibility;
    accessibility.setAttribute(desktop.element(first), "AXMain", true);
    desktop.applications().activate(owner(first));
    EXPECT_TRUE(runUntil(
        [&] { return *accessibility.attribute(desktop.element(first), "AXMain").as<bool>(); }));
    EXPECT_TRUE(desktop.isListed(other));
}

TEST_F(ApplicationsTest, QuittingClosesTheWindowsAndForcingKillsTheProcess) {
    auto dying = std::make_unique<TestClient>(ManagedServer::display());
    const auto window = dying->open({.className = "Closing"});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(window); }));
    ASSERT_TRUE(desktop.applications().terminate(owner(window)));
    // It does not support WM_DELETE_WINDOW, so the manager closes its connection.
    EXPECT_TRUE(runUntil([&] { return !desktop.running("x11:Closing"); }));

    const auto process = startProcess({"sleep", "60"});
    const auto stubborn =
        client.open({.className = "Stubborn", .pid = static_cast<std::uint32_t>(process)});
    ASSERT_TRUE(runUntil([&] { return desktop.isListed(stubborn); }));
    ASSERT_TRUE(desktop.applications().forceTerminate(owner(stubborn)));
    endProcess(process, 0);
}

} // namespace larkspan::x11
