#include "adapters/qt/ControlSocket.h"

#include "adapters/qt/ControlAddress.h"
#include "adapters/qt/watchReadable.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace larkspan::qt {

namespace {

// Limits of the memory that clients can make us use.
constexpr std::size_t longestLine = 64 * 1024;
constexpr std::size_t mostClients = 16;

void makeQuiet(int descriptor) {
    fcntl(descriptor, F_SETFD, FD_CLOEXEC);
    fcntl(descriptor, F_SETFL, fcntl(descriptor, F_GETFL) | O_NONBLOCK);
#ifdef SO_NOSIGPIPE
    const int on = 1;
    setsockopt(descriptor, SOL_SOCKET, SO_NOSIGPIPE, &on, sizeof on);
#endif
}

/// Opens a listening socket at the path, and replaces one that a dead instance left; -1 on failure.
int openListener(const ControlAddress& address) {
    unlink(address.path().c_str());
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    if (listener < 0) return -1;
    makeQuiet(listener);
    const auto name = address.socketName();
    const bool isOpen =
        bind(listener, reinterpret_cast<const sockaddr*>(&name), sizeof name) == 0 &&
        chmod(address.path().c_str(), S_IRUSR | S_IWUSR) == 0 &&
        ::listen(listener, static_cast<int>(mostClients)) == 0;
    if (isOpen) return listener;
    close(listener);
    return -1;
}

} // namespace

struct ControlSocket::Client {
    int socket;
    std::string asked;
    std::string answer;
    Handle readable;
    Handle writable;
};

ControlSocket::Listening ControlSocket::listen(std::string_view name, Handler handler) {
    const auto address = ControlAddress::make(name);
    if (!address) return {.failure = "there is no private folder for the control socket"};
    // The instance holds the lock; the kernel releases it however the process ends.
    const int lock = open((address->path() + ".lock").c_str(),
                          O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, S_IRUSR | S_IWUSR);
    if (lock < 0) return {.failure = fmt::format("{}.lock: {}", address->path(), strerror(errno))};
    if (flock(lock, LOCK_EX | LOCK_NB) != 0) {
        close(lock);
        return {.isTaken = true, .failure = "another instance is running"};
    }
    const int listener = openListener(*address);
    if (listener < 0) {
        const std::string failure = fmt::format("{}: {}", address->path(), strerror(errno));
        close(lock);
        return {.failure = failure};
    }
    return {.socket = std::unique_ptr<ControlSocket>(
                new ControlSocket(address->path(), lock, listener, std::move(handler)))};
}

ControlSocket::ControlSocket(std::string path, int lock, int listener, Handler handler)
    : path_(std::move(path))
    , lock_(lock)
    , listener_(listener)
    , handler_(std::move(handler))
    , readable_(watchReadable(listener, [this] { accept(); })) {}

ControlSocket::~ControlSocket() {
    readable_.reset();
    while (!clients_.empty())
        drop(*clients_.front());
    // The socket is removed before the lock, so a new instance that gets the lock finds no socket
    // of ours.
    unlink(path_.c_str());
    close(listener_);
    close(lock_);
}

void ControlSocket::accept() {
    while (true) {
        const int connection = ::accept(listener_, nullptr, nullptr);
        if (connection < 0) return;
        makeQuiet(connection);
        if (!isThisUser(connection)) {
            close(connection);
            continue;
        }
        // Disconnects the client that has waited longest.
        if (clients_.size() == mostClients) drop(*clients_.front());
        Client& client =
            *clients_.emplace_back(std::make_shared<Client>(Client{.socket = connection}));
        client.readable = watchReadable(connection, [this, &client] { read(client); });
    }
}

void ControlSocket::read(Client& client) {
    std::array<char, 4096> buffer{};
    while (true) {
        const auto count = ::read(client.socket, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) return;
        if (count <= 0) return drop(client);
        client.asked.append(buffer.data(), static_cast<std::size_t>(count));
        const auto end = client.asked.find('\n');
        if (end != std::string::npos) return answer(client, client.asked.substr(0, end));
        if (client.asked.size() > longestLine) return drop(client);
    }
}

void ControlSocket::answer(Client& client, std::string line) {
    client.readable.reset();
    const auto own = std::ranges::find(clients_, &client, &std::shared_ptr<Client>::get);
    handler_(std::move(line), [this, waiting = std::weak_ptr(*own)](std::string given) {
        // The local copy keeps the client alive: writing the last byte drops it.
        const auto present = waiting.lock();
        if (!present) return;
        present->answer = std::move(given);
        write(*present);
    });
}

void ControlSocket::write(Client& client) {
#ifdef MSG_NOSIGNAL
    constexpr int flags = MSG_NOSIGNAL;
#else
    constexpr int flags = 0;
#endif
    while (!client.answer.empty()) {
        const auto count = send(client.socket, client.answer.data(), client.answer.size(), flags);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0 && errno == EAGAIN) {
            if (!client.writable)
                client.writable = watchWritable(client.socket, [this, &client] { write(client); });
            return;
        }
        if (count < 0) break;
        client.answer.erase(0, static_cast<std::size_t>(count));
    }
    drop(client);
}

void ControlSocket::drop(Client& client) {
    client.readable.reset();
    client.writable.reset();
    close(client.socket);
    clients_.remove_if([&](const auto& other) { return other.get() == &client; });
}

} // namespace larkspan::qt
