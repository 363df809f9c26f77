#include "adapters/qt/ControlSocket.h"

#include "adapters/qt/ControlAddress.h"
#include "adapters/qt/RunLoop.h"
#include "adapters/qt/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <cstdlib>
#include <future>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace larkspan::qt {
namespace {

using Reply = ControlSocket::Reply;

class ControlSocketTest : public testing::Test {
  protected:
    void SetUp() override {
        testApplication();
        setenv("XDG_RUNTIME_DIR", runtime_.path().c_str(), 1);
    }

    static ControlSocket::Listening listen(const std::string& name = "x11-:7") {
        return ControlSocket::listen(
            name, [](const std::string& line, const Reply& reply) { reply("you said " + line); });
    }

    using Asking = std::future<std::optional<std::string>>;

    /// Sends a request from another thread, as another process would.
    static Asking asking(const std::string& line, const std::string& name = "x11-:7") {
        return std::async(std::launch::async, ControlSocket::request, name, line);
    }
    static bool isAnswered(const Asking& asking) {
        return asking.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }
    /// The same, while this thread runs its loop.
    static std::optional<std::string> ask(const std::string& line,
                                          const std::string& name = "x11-:7") {
        auto answer = asking(line, name);
        runUntil([&] { return isAnswered(answer); });
        return answer.get();
    }

    /// A client that connects and sends only `text`.
    static int connectSilently(const std::string& text = {}) {
        const auto address = ControlAddress::find("x11-:7");
        if (!address) return -1;
        const int connection = socket(AF_UNIX, SOCK_STREAM, 0);
        const auto name = address->socketName();
        if (connect(connection, reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0)
            return -1;
        [[maybe_unused]] const auto sent = write(connection, text.data(), text.size());
        return connection;
    }

    TemporaryFolder runtime_;
};

TEST_F(ControlSocketTest, RepliesToOneLineWithOneLine) {
    const auto listening = listen();
    ASSERT_TRUE(listening.socket);
    EXPECT_EQ(ask("state"), "you said state");
    EXPECT_EQ(ask(""), "you said ");
    EXPECT_EQ(ask("ünï \t\" code"), "you said ünï \t\" code");
}

TEST_F(ControlSocketTest, LongRepliesArriveComplete) {
    const std::string all(3'000'000, 'y');
    const auto listening = ControlSocket::listen(
        "x11-:7", [&](const std::string&, const Reply& reply) { reply(all); });
    EXPECT_EQ(ask("state"), all);
}

TEST_F(ControlSocketTest, ALateReplyDoesNotBlockOthers) {
    std::vector<Reply> waiting;
    const auto listening =
        ControlSocket::listen("x11-:7", [&](const std::string& line, const Reply& reply) {
            if (line == "slow")
                waiting.push_back(reply);
            else
                reply("quick");
        });
    auto slow = asking("slow");
    runUntil([&] { return waiting.size() == 1; });
    EXPECT_EQ(ask("state"), "quick");
    EXPECT_FALSE(isAnswered(slow));
    waiting.front()("in the end");
    runUntil([&] { return isAnswered(slow); });
    EXPECT_EQ(slow.get(), "in the end");
}

TEST_F(ControlSocketTest, AReplyMayOutliveItsClientAndItsSocket) {
    std::vector<Reply> waiting;
    auto listening = ControlSocket::listen(
        "x11-:7", [&](const std::string&, const Reply& reply) { waiting.push_back(reply); });
    const int left = connectSilently("slow\n");
    runUntil([&] { return waiting.size() == 1; });
    close(left);
    waiting[0]("to nobody");
    waiting[0]("to nobody again");

    std::vector<int> clients;
    // More than the limit: the oldest are dropped.
    for (std::size_t number = 0; number < 20; ++number) {
        clients.push_back(connectSilently("slow\n"));
        runUntil([&] { return waiting.size() == 2 + number; });
    }
    waiting[1]("too late");
    listening.socket.reset();
    for (const auto& reply : waiting)
        reply("too late");
    for (const int connection : clients)
        close(connection);
}

TEST_F(ControlSocketTest, WithoutAnInstanceThereIsNoReply) {
    EXPECT_EQ(ask("state"), std::nullopt);
    { const auto listening = listen(); }
    EXPECT_EQ(ask("state"), std::nullopt) << "the instance has ended";
}

TEST_F(ControlSocketTest, EachDisplayHasItsOwnInstance) {
    const auto first = listen("x11-:7");
    const auto second = listen("x11-host/with/slashes:8.0");
    const std::string longName(300, 'd');
    const auto third = listen(longName);
    ASSERT_TRUE(first.socket && second.socket && third.socket);
    EXPECT_EQ(ask("a", longName), "you said a");
    EXPECT_EQ(ask("a", "x11-:9"), std::nullopt);
}

TEST_F(ControlSocketTest, ASecondInstanceNoticesTheFirst) {
    auto first = listen();
    auto second = listen();
    EXPECT_FALSE(second.socket);
    EXPECT_TRUE(second.isTaken);
    EXPECT_EQ(ask("state"), "you said state") << "the first instance still replies";
    first.socket.reset();
    EXPECT_TRUE(listen().socket);
}

TEST_F(ControlSocketTest, SilentAndEndlessClientsDoNotBlockOthers) {
    const auto listening = listen();
    std::vector<int> silent;
    for (int number = 0; number < 40; ++number) {
        silent.push_back(connectSilently(number % 2 == 0 ? "" : "half a line"));
        if (number % 8 == 0) QCoreApplication::processEvents();
    }
    EXPECT_EQ(ask("state"), "you said state");
    EXPECT_EQ(ask(std::string(1'000'000, 'x')), std::nullopt);
    EXPECT_EQ(ask("state"), "you said state");
    for (const int connection : silent) {
        close(connection);
    }
}

TEST_F(ControlSocketTest, ExactlyOneOfSeveralStartsWins) {
    // A killed instance left its socket behind.
    const pid_t dead = fork();
    if (dead == 0) {
        const auto listening = listen();
        _exit(listening.socket ? 0 : 1);
    }
    int status = -1;
    waitpid(dead, &status, 0);
    ASSERT_EQ(status, 0);
    ASSERT_TRUE(runtime_.exists("larkspan/x11-:7.socket"));

    std::array<int, 2> start{};
    std::array<int, 2> results{};
    std::array<int, 2> end{};
    ASSERT_TRUE(pipe(start.data()) == 0 && pipe(results.data()) == 0 && pipe(end.data()) == 0);
    std::vector<pid_t> children;
    for (int number = 0; number < 8; ++number) {
        const pid_t child = fork();
        if (child == 0) {
            close(start[1]);
            close(end[1]);
            char byte = 0;
            [[maybe_unused]] auto count = read(start[0], &byte, 1);
            const auto listening = listen();
            count = write(results[1], listening.socket ? "w" : listening.isTaken ? "t" : "f", 1);
            count = read(end[0], &byte, 1);
            _exit(0);
        }
        children.push_back(child);
    }
    close(start[1]);
    std::string answers;
    while (answers.size() < children.size()) {
        char byte = 0;
        ASSERT_EQ(read(results[0], &byte, 1), 1);
        answers += byte;
    }
    close(end[1]);
    for (const pid_t child : children) {
        waitpid(child, nullptr, 0);
    }
    for (const int descriptor : {start[0], results[0], results[1], end[0]}) {
        close(descriptor);
    }
    std::ranges::sort(answers);
    EXPECT_EQ(answers, "tttttttw");
}

TEST_F(ControlSocketTest, OnlyThisUserCanReachIt) {
    const auto listening = listen();
    struct stat status {};
    ASSERT_EQ(stat(runtime_.path("larkspan").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
    ASSERT_EQ(stat(runtime_.path("larkspan/x11-:7.socket").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
}

TEST_F(ControlSocketTest, AFolderOfAnotherUserIsRefused) {
    struct Case {
        const char* what;
        std::function<void(const std::string&)> plant;
    };
    const Case cases[] = {
        {"open to others",
         [](const std::string& path) {
             mkdir(path.c_str(), 0700);
             chmod(path.c_str(), 0755);
         }},
        {"a link",
         [this](const std::string& path) {
             mkdir(runtime_.path("elsewhere").c_str(), 0700);
             [[maybe_unused]] const int result = symlink("elsewhere", path.c_str());
         }},
        {"a file", [this](const std::string&) { runtime_.write("larkspan", ""); }},
        {"another user's",
         [](const std::string& path) {
             mkdir(path.c_str(), 0700);
             // Only root can change the owner; other users open the folder to the group instead.
             if (chown(path.c_str(), 65534, 65534) != 0) chmod(path.c_str(), 0770);
         }},
    };
    for (const auto& each : cases) {
        each.plant(runtime_.path("larkspan"));
        const auto listening = listen();
        EXPECT_FALSE(listening.socket) << each.what;
        EXPECT_FALSE(listening.isTaken) << each.what;
        EXPECT_FALSE(listening.failure.empty()) << each.what;
        std::filesystem::remove_all(runtime_.path("larkspan"));
    }
}

TEST_F(ControlSocketTest, WithoutARuntimeFolderItUsesTheTemporaryOne) {
    setenv("XDG_RUNTIME_DIR", "/nonexistent/folder", 1);
    setenv("TMPDIR", runtime_.path().c_str(), 1);
    const auto listening = listen();
    EXPECT_TRUE(listening.socket);
    EXPECT_EQ(ask("state"), "you said state");
    unsetenv("TMPDIR");
}

} // namespace
} // namespace larkspan::qt
