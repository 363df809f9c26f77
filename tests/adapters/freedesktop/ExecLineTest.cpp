#include "adapters/freedesktop/entries/ExecLine.h"

#include <gmock/gmock.h>

namespace larkspan::freedesktop {
namespace {

using Arguments = std::vector<std::string>;
using Lines = std::vector<Arguments>;

TEST(ExecLine, QuotesAndEscapes) {
    struct Case {
        const char* exec;
        std::optional<Arguments> arguments;
    };
    const Case cases[] = {
        {"xterm", Arguments{"xterm"}},
        {"  a   b\tc ", Arguments{"a", "b", "c"}},
        {R"("/opt/my app/run" --x)", Arguments{"/opt/my app/run", "--x"}},
        {R"(a "" b)", Arguments{"a", "", "b"}},
        {R"(a "say \"hi\" \$HOME \\ \`")", Arguments{"a", R"(say "hi" $HOME \ `)"}},
        {R"(sh -c "echo 'x; y' && z")", Arguments{"sh", "-c", "echo 'x; y' && z"}},
        {R"(a --b="c d")", Arguments{"a", "--b=c d"}},
        {"a $HOME *", Arguments{"a", "$HOME", "*"}},
        {R"(a "open)", std::nullopt},
        {"", std::nullopt},
        {"   ", std::nullopt},
        {R"("")", std::nullopt},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(splitExec(each.exec), each.arguments) << each.exec;
    }
}

TEST(ExecLine, FieldCodes) {
    const DesktopEntry entry{.path = "/a/b.desktop", .name = "My App", .icon = "my-icon"};
    const DesktopEntry withoutIcon{.name = "My App"};
    struct Case {
        const char* exec;
        std::vector<std::string> files;
        Lines lines;
        const DesktopEntry* entry = nullptr;
    };
    const Case cases[] = {
        {"a %f", {}, {{"a"}}},
        {"a %f", {"/x y"}, {{"a", "/x y"}}},
        {"a %f", {"file:///x%20y"}, {{"a", "/x y"}}},
        {"a %f -v", {"/x", "/y"}, {{"a", "/x", "-v"}, {"a", "/y", "-v"}}},
        {"a %F", {"/x", "/y"}, {{"a", "/x", "/y"}}},
        {"a %F", {}, {{"a"}}},
        {"a %u", {"/x y"}, {{"a", "file:///x%20y"}}},
        {"a %U", {"/x", "https://e.org/"}, {{"a", "file:///x", "https://e.org/"}}},
        {"a --file=%f", {"/x"}, {{"a", "--file=/x"}}},
        {"a %i %c %k", {}, {{"a", "--icon", "my-icon", "My App", "/a/b.desktop"}}},
        {"a %i", {}, {{"a"}}, &withoutIcon},
        {"a 100%% %d%D%n%N%v%m b", {}, {{"a", "100%", "", "b"}}},
        {"a %d b", {}, {{"a", "b"}}},
        {"a", {"/x"}, {{"a"}}},
        {"a \"", {"/x"}, {}},
    };
    for (const auto& each : cases) {
        EXPECT_EQ(commandLines(each.entry ? *each.entry : entry, each.exec, each.files), each.lines)
            << each.exec;
    }
}

TEST(ExecLine, OnlyAPlainLineIdentifiesTheProcess) {
    EXPECT_EQ(soleProgram("gimp-2.10 %U"), "gimp-2.10");
    EXPECT_EQ(soleProgram("/usr/bin/chromium --no-first-run %U"), "/usr/bin/chromium");
    EXPECT_EQ(soleProgram("python3 /usr/share/tool/main.py"), std::nullopt);
    EXPECT_EQ(soleProgram("env A=1 tool"), std::nullopt);
    EXPECT_EQ(soleProgram("\""), std::nullopt);
}

} // namespace
} // namespace larkspan::freedesktop
