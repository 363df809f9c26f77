#include "adapters/qt/DefaultsFile.h"

#include "adapters/qt/TemporaryFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <csignal>
#include <limits>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace larkspan::qt {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class DefaultsFileTest : public testing::Test {
  protected:
    DefaultsFile open(const std::string& name = "larkspan/settings.json") {
        return {folder_.path(name), [this](const std::string& line) { reports_.push_back(line); }};
    }
    ino_t inode(const std::string& name) const {
        struct stat status {};
        return stat(folder_.path(name).c_str(), &status) == 0 ? status.st_ino : 0;
    }
    mode_t mode(const std::string& name) const {
        struct stat status {};
        return stat(folder_.path(name).c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    TemporaryFolder folder_;
    std::vector<std::string> reports_;
};

TEST_F(DefaultsFileTest, EveryTypeSurvivesARestart) {
    using Array = PropertyValue::Array;
    using Dictionary = PropertyValue::Dictionary;
    const std::vector<PropertyValue> values = {
        true,
        false,
        0,
        1,
        std::numeric_limits<std::int64_t>::min(),
        std::numeric_limits<std::int64_t>::max(),
        1.0,
        -0.1,
        4.5,
        1e300,
        std::numeric_limits<double>::infinity(),
        "",
        "72",
        "true",
        "süß \" \\ \n 🎈",
        std::string("not \xff\xfe text"),
        std::string("zero\0inside", 11),
        Data{""},
        Data{std::string("\0\x80{\"a\":1}", 9)},
        Array{},
        Array{1, 1.0, "1", true, Array{Data{"x"}}},
        Dictionary{},
        Dictionary{{"a", 1}, {"b", Dictionary{{"c", 0.5}}}},
        Dictionary{{"$data", "looks wrapped"}},
        Dictionary{{"$dictionary", Dictionary{{"$text", 1}}}},
    };
    for (std::size_t index = 0; index < values.size(); ++index) {
        open().set("key " + std::to_string(index), values[index]);
    }
    const auto reopened = open();
    for (std::size_t index = 0; index < values.size(); ++index) {
        EXPECT_EQ(reopened.value("key " + std::to_string(index)), values[index]) << index;
    }
    EXPECT_THAT(reports_, IsEmpty());
}

TEST_F(DefaultsFileTest, NotANumberSurvives) {
    open().set("number", std::nan(""));
    const auto value = open().value("number");
    ASSERT_TRUE(value && value->as<double>());
    EXPECT_TRUE(std::isnan(*value->as<double>()));
}

TEST_F(DefaultsFileTest, ReadsHandWrittenFiles) {
    folder_.write("larkspan/settings.json",
                  R"({"style": "bar", "barHeight": 60, "glassBlur": "much", "gone": null})");
    const auto defaults = open();
    EXPECT_EQ(defaults.value("style"), PropertyValue("bar"));
    EXPECT_EQ(defaults.value("barHeight"), PropertyValue(60));
    EXPECT_EQ(defaults.value("glassBlur"), PropertyValue("much"));
    EXPECT_EQ(defaults.value("gone"), std::nullopt);
}

TEST_F(DefaultsFileTest, OnlyThisUserMayReadIt) {
    auto defaults = open("deep/er/settings.json");
    defaults.set("mode", "vantrel");
    EXPECT_EQ(mode("deep/er/settings.json"), 0600u);
    EXPECT_EQ(mode("deep/er"), 0700u);
    EXPECT_EQ(mode("deep"), 0700u);
}

TEST_F(DefaultsFileTest, AnEqualValueIsNotWritten) {
    auto defaults = open();
    defaults.set("barHeight", 72);
    const auto before = inode("larkspan/settings.json");
    defaults.set("barHeight", 72);
    defaults.remove("never set");
    EXPECT_EQ(inode("larkspan/settings.json"), before);
    defaults.set("barHeight", 72.0);
    EXPECT_NE(inode("larkspan/settings.json"), before) << "a different type is a different value";
}

TEST_F(DefaultsFileTest, RemovedKeysStayRemoved) {
    open().set("dotColorRGBA", PropertyValue::Array{1, 0, 0, 1});
    open().remove("dotColorRGBA");
    EXPECT_EQ(open().value("dotColorRGBA"), std::nullopt);
}

TEST_F(DefaultsFileTest, ADamagedFileIsRenamedAndNeverLost) {
    struct Case {
        const char* text;
        bool isDamaged;
    };
    const std::string deep = std::string(500, '[') + std::string(500, ']');
    const std::string deepText = "{\"a\": " + deep + "}";
    const Case cases[] = {
        {"", false},
        {" \n", false},
        {"{}", false},
        {"{\"mode\": \"vantrel\"", true},
        {"[1, 2]", true},
        {"\x01\x02", true},
        {"{\"a\": {\"$data\": \"no base64!\"}}", true},
        {deepText.c_str(), true},
    };
    int damaged = 0;
    for (const auto& each : cases) {
        folder_.write("larkspan/settings.json", each.text);
        reports_.clear();
        auto defaults = open();
        EXPECT_EQ(defaults.value("mode"), std::nullopt);
        defaults.set("mode", "systemDock");
        EXPECT_EQ(open().value("mode"), PropertyValue("systemDock"));
        EXPECT_EQ(reports_.size(), each.isDamaged ? 1u : 0u) << each.text;
        if (!each.isDamaged) continue;
        const std::string aside = "larkspan/settings.json.damaged" +
                                  (++damaged == 1 ? "" : "." + std::to_string(damaged));
        EXPECT_EQ(folder_.read(aside), each.text);
        EXPECT_THAT(reports_[0], HasSubstr(folder_.path(aside)));
    }
    EXPECT_EQ(damaged, 5);
}

TEST_F(DefaultsFileTest, FollowsALinkInsteadOfReplacingIt) {
    std::filesystem::create_directories(folder_.path("larkspan"));
    for (const std::string text : {"", "{\"mode\": \"vantrel\"}"}) {
        std::filesystem::remove(folder_.path("larkspan/settings.json"));
        // At first, the link's target does not exist.
        if (!text.empty()) folder_.write("dotfiles/settings.json", text);
        std::filesystem::create_symlink("../dotfiles/settings.json",
                                        folder_.path("larkspan/settings.json"));
        open().set("style", "bar");
        EXPECT_TRUE(std::filesystem::is_symlink(folder_.path("larkspan/settings.json")));
        EXPECT_THAT(folder_.read("dotfiles/settings.json"), HasSubstr("\"style\": \"bar\""));
    }
    EXPECT_EQ(open().value("mode"), PropertyValue("vantrel"));
}

TEST_F(DefaultsFileTest, WithoutAFolderItUsesMemoryAndReportsItOnce) {
    folder_.write("file", "");
    auto defaults = open("file/settings.json");
    defaults.set("style", "bar");
    defaults.set("style", "island");
    EXPECT_EQ(defaults.value("style"), PropertyValue("island"));
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_EQ(reports_.size(), 1u);
}

TEST_F(DefaultsFileTest, AFileThatCannotBeReadIsNotReplaced) {
    std::filesystem::create_directories(folder_.path("larkspan/settings.json"));
    auto defaults = open();
    defaults.set("style", "bar");
    EXPECT_FALSE(defaults.synchronize());
    EXPECT_TRUE(std::filesystem::is_directory(folder_.path("larkspan/settings.json")));
    EXPECT_EQ(reports_.size(), 1u);
}

TEST_F(DefaultsFileTest, KeepsChangesOfOtherPrograms) {
    auto ours = open();
    ours.set("style", "bar");
    open().set("glass", "regular");
    ours.set("barHeight", 60);
    const auto reopened = open();
    EXPECT_EQ(reopened.value("style"), PropertyValue("bar"));
    EXPECT_EQ(reopened.value("glass"), PropertyValue("regular"));
    EXPECT_EQ(reopened.value("barHeight"), PropertyValue(60));
}

TEST_F(DefaultsFileTest, AKillLosesNoFinishedChange) {
    open().set("count", 0);
    for (int round = 0; round < 12; ++round) {
        std::array<int, 2> pipe{};
        ASSERT_EQ(::pipe(pipe.data()), 0);
        const pid_t child = fork();
        if (child == 0) {
            auto defaults = open();
            for (int count = 1;; ++count) {
                defaults.set("count", count);
                defaults.set("padding",
                             std::string(static_cast<std::size_t>(count % 7) * 3000, 'x'));
                if (write(pipe[1], "", 1) != 1) _exit(1);
            }
        }
        close(pipe[1]);
        char byte = 0;
        for (int finished = 0; finished <= round; ++finished) {
            ASSERT_EQ(read(pipe[0], &byte, 1), 1);
        }
        kill(child, SIGKILL);
        waitpid(child, nullptr, 0);
        close(pipe[0]);
        const auto count = open().value("count");
        ASSERT_TRUE(count && count->as<std::int64_t>());
        EXPECT_GE(*count->as<std::int64_t>(), round + 1);
    }
    EXPECT_THAT(reports_, IsEmpty());
    int files = 0;
    for ([[maybe_unused]] const auto& file :
         std::filesystem::directory_iterator(folder_.path("larkspan"))) {
        ++files;
    }
    EXPECT_EQ(files, 1) << "temporary files of killed writers are removed";
}

} // namespace
} // namespace larkspan::qt
