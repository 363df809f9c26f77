// The client side of the control socket: plain POSIX, so that the command line need not start a
// toolkit.

#include "adapters/qt/ControlAddress.h"
#include "adapters/qt/ControlSocket.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace larkspan::qt {

namespace {

/// One connection with a time limit for the whole exchange. (A command line has no scheduler for
/// the time.)
class Exchange {
  public:
    explicit Exchange(int connection)
        : socket_(connection) {}
    ~Exchange() {
        if (socket_ >= 0) close(socket_);
    }
    Exchange(const Exchange&) = delete;
    Exchange& operator=(const Exchange&) = delete;

    bool connectTo(const ControlAddress& address) const {
        const auto name = address.socketName();
        while (connect(socket_, reinterpret_cast<const sockaddr*>(&name), sizeof name) != 0) {
            // The backlog is full: one cannot wait to connect to a local socket.
            if (errno != EINTR && errno != EAGAIN) return false;
            if (errno == EAGAIN && (remaining() == 0 || poll(nullptr, 0, 10) != 0)) return false;
        }
        return isThisUser(socket_);
    }

    bool send(std::string_view text) const {
        while (!text.empty()) {
            if (!waitFor(POLLOUT)) return false;
            const auto count = write(socket_, text.data(), text.size());
            if (count < 0 && errno != EINTR && errno != EAGAIN) return false;
            if (count > 0) text.remove_prefix(static_cast<std::size_t>(count));
        }
        return true;
    }

    std::optional<std::string> receive() const {
        std::string answer;
        std::array<char, 4096> buffer{};
        while (waitFor(POLLIN)) {
            const auto count = ::read(socket_, buffer.data(), buffer.size());
            if (count == 0) return answer;
            if (count < 0 && errno != EINTR && errno != EAGAIN) return std::nullopt;
            if (count > 0) answer.append(buffer.data(), static_cast<std::size_t>(count));
        }
        return std::nullopt;
    }

  private:
    using Clock = std::chrono::steady_clock;

    int remaining() const {
        const auto left =
            std::chrono::duration_cast<std::chrono::milliseconds>(end_ - Clock::now());
        return left.count() > 0 ? static_cast<int>(left.count()) : 0;
    }

    bool waitFor(short event) const {
        pollfd waiting{socket_, event, 0};
        while (true) {
            const int ready = poll(&waiting, 1, remaining());
            if (ready > 0) return true;
            if (ready == 0 || errno != EINTR) return false;
        }
    }

    int socket_;
    Clock::time_point end_ = Clock::now() + std::chrono::seconds(2);
};

} // namespace

std::optional<std::string> ControlSocket::request(std::string_view name, std::string_view line) {
    const auto address = ControlAddress::find(name);
    if (!address) return std::nullopt;
    const int connection = socket(AF_UNIX, SOCK_STREAM, 0);
    if (connection < 0) return std::nullopt;
    const Exchange exchange(connection);
    fcntl(connection, F_SETFD, FD_CLOEXEC);
    fcntl(connection, F_SETFL, O_NONBLOCK);
    // The instance may quit in the middle of a request; SIGPIPE must not end us.
    struct sigaction ignore {};
    struct sigaction before {};
    ignore.sa_handler = SIG_IGN;
    sigaction(SIGPIPE, &ignore, &before);
    std::optional<std::string> answer;
    if (exchange.connectTo(*address) && exchange.send(line) && exchange.send("\n"))
        answer = exchange.receive();
    sigaction(SIGPIPE, &before, nullptr);
    return answer;
}

} // namespace larkspan::qt
