#include "RunningBar.h"

#include <gmock/gmock.h>

namespace larkspan::e2e {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Log : public testing::Test {
  protected:
    /// Saves from the folder "elsewhere" in the home folder, where the bar was not started.
    CommandResult save(const std::string& file) {
        const auto folder = desktop.home() / "elsewhere";
        std::filesystem::create_directories(folder);
        return runCommand({{"/bin/sh", "-c", "cd \"$1\" && exec \"$2\" log \"$3\"", "sh",
                            folder.string(), LARKSPAN_PROGRAM, file},
                           desktop.environment(),
                           desktop.home() / "command.log"});
    }

    PrivateDesktop desktop;
};

TEST_F(Log, IsPrintedAndSavedInTheWorkingDirectory) {
    RunningBar bar(desktop);
    const auto printed = bar.command({"log"});
    EXPECT_EQ(printed.exitCode, 0);
    EXPECT_THAT(printed.output, StartsWith("Larkspan "));
    EXPECT_THAT(printed.output, HasSubstr("xcb"));
    EXPECT_THAT(printed.output, HasSubstr("app: Larkspan started\n"));

    const auto saved = save("bar.txt");
    EXPECT_EQ(saved.exitCode, 0) << saved.output;
    EXPECT_EQ(saved.output, "");
    const auto text = contentsOf(desktop.home() / "elsewhere/bar.txt");
    EXPECT_THAT(text, HasSubstr("app: Larkspan started\n"));
    EXPECT_EQ(text.back(), '\n');
    EXPECT_EQ(save("bar.txt").exitCode, 0) << "an existing file is replaced";
}

TEST_F(Log, ReportsWhyItCannotBeSaved) {
    struct Case {
        std::string file;
        std::string error;
    };
    const Case cases[] = {
        {"nowhere/bar.txt", "there is no folder nowhere"},
        {"..", ".. is not a regular file"},
        {"/dev/null", "/dev/null is not a regular file"},
        // Nobody can write there, not even root.
        {"/proc/bar.txt", "cannot write /proc/bar.txt: "},
    };
    EXPECT_EQ(save("bar.txt").exitCode, 1) << "no bar is running yet";
    EXPECT_FALSE(std::filesystem::exists(desktop.home() / "elsewhere/bar.txt"));
    const RunningBar bar(desktop);
    for (const auto& each : cases) {
        const auto saved = save(each.file);
        EXPECT_EQ(saved.exitCode, 2) << each.file;
        EXPECT_THAT(saved.output, HasSubstr("larkspan: " + each.error)) << each.file;
    }
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

} // namespace
} // namespace larkspan::e2e
