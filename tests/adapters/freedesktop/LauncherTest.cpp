#include "adapters/freedesktop/launch/Launcher.h"

#include "adapters/freedesktop/DesktopFolders.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace larkspan::freedesktop {
namespace {

using testing::HasSubstr;
using testing::Not;

class LauncherTest : public DesktopFolders {
  protected:
    /// A program that writes its arguments and environment to a file, which appears when it is
    /// complete.
    void installReporter(const std::string& name) {
        installProgram(name, "cd \"$OLDPWD\" 2>/dev/null\n{ printf '%s|' \"$@\"; echo; pwd; "
                             "cut -d' ' -f6 /proc/$$/stat; echo $$; env; ls -l /proc/self/fd; "
                             "} > " +
                                 folder_.path(name + ".new") + " 2>&1; mv " +
                                 folder_.path(name + ".new") + " " + folder_.path(name + ".out"));
    }
    std::string report(const std::string& name) {
        EXPECT_TRUE(qt::runUntil([&] { return folder_.exists(name + ".out"); }));
        return folder_.read(name + ".out");
    }
    DesktopEntryRef entry(const std::string& exec, const std::string& keys = "") {
        install("app", "Exec=" + exec + "\n" + keys, "App");
        return entries_.find("app");
    }

    Launcher launcher_{environment_, defaults_};
};

TEST_F(LauncherTest, StartsWithoutAShellInItsOwnSession) {
    installReporter("reporter");
    setenv("QT_QPA_PLATFORM", "ours", 1);
    const int leak = open("/dev/null", O_RDONLY);
    const auto result =
        launcher_.launch(*entry("reporter --x \"$HOME; *\" %F"), {"/a b", "/c"}, "id-of-the-start");
    unsetenv("QT_QPA_PLATFORM");
    close(leak);
    ASSERT_TRUE(result.pid) << result.failure;
    const std::string text = report("reporter");
    EXPECT_THAT(text, HasSubstr("--x|$HOME; *|/a b|/c|"));
    const std::string pid = std::to_string(*result.pid);
    EXPECT_THAT(text, HasSubstr("\n" + pid + "\n" + pid + "\n"))
        << "it is the leader of its session";
    EXPECT_THAT(text, HasSubstr("DESKTOP_STARTUP_ID=id-of-the-start"));
    EXPECT_THAT(text, HasSubstr("HOME=" + folder_.path("home")));
    EXPECT_THAT(text, Not(HasSubstr("QT_QPA_PLATFORM")));
    // 0 to 2, and the one of the listing.
    EXPECT_THAT(text, Not(HasSubstr(" 4 -> ")));
}

TEST_F(LauncherTest, StartsInTheEntrysFolder) {
    const auto place = std::filesystem::canonical(folder_.path("data")).string();
    installProgram("where", "pwd > " + folder_.path("where.out"));
    ASSERT_TRUE(launcher_.launch(*entry("where", "Path=" + place)).pid);
    ASSERT_TRUE(qt::runUntil([&] { return folder_.read("where.out") == place + "\n"; }));
}

TEST_F(LauncherTest, TerminalProgramsGetATerminal) {
    installReporter("x-term");
    installProgram("tool");
    install("term", "Exec=x-term --own-option\nCategories=TerminalEmulator;");
    ASSERT_TRUE(launcher_.launch(*entry("tool \"a b\" %f", "Terminal=true"), {"/f"}).pid);
    EXPECT_THAT(report("x-term"), HasSubstr("-e|tool|a b|/f|"));
}

TEST_F(LauncherTest, StartsOncePerFileIfTheProgramTakesOne) {
    installProgram("one", "echo \"$1\" >> " + folder_.path("one.out"));
    ASSERT_TRUE(launcher_.launch(*entry("one %f"), {"/a", "/b"}).pid);
    ASSERT_TRUE(qt::runUntil([&] { return folder_.read("one.out").size() == 6; }));
}

TEST_F(LauncherTest, FailuresHaveAReason) {
    EXPECT_THAT(launcher_.launch(*entry("not-there")).failure, HasSubstr("not-there"));
    folder_.write("data/applications/app.desktop", "");
    const DesktopEntry malformed{.path = "/x.desktop", .name = "X", .exec = "\"open"};
    EXPECT_THAT(launcher_.launch(malformed).failure, HasSubstr("/x.desktop"));
    installProgram("here");
    const DesktopEntry elsewhere{.name = "X", .exec = "here", .workingFolder = "/no/such/folder"};
    const auto result = launcher_.launch(elsewhere);
    EXPECT_FALSE(result.pid);
    EXPECT_THAT(result.failure, HasSubstr("No such file"));
}

TEST_F(LauncherTest, EndedProgramsLeaveNoZombie) {
    installProgram("short");
    ProcessId ended = 0;
    const Handle subscription = launcher_.subscribeEnds([&](ProcessId pid) { ended = pid; });
    const auto result = launcher_.launch(*entry("short"));
    ASSERT_TRUE(result.pid);
    ASSERT_TRUE(qt::runUntil([&] { return ended == *result.pid; }));
    EXPECT_EQ(kill(*result.pid, 0), -1);
    EXPECT_EQ(errno, ESRCH);
}

} // namespace
} // namespace larkspan::freedesktop
