#pragma once

#include "platform/Handle.h"

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

/// Receives requests from a second start of the program and from scripts: a local socket that only
/// this user can open. Each request and each reply is one line.
class ControlSocket {
  public:
    /// Sends the reply to one request: once, now or later, on the main thread. No effect if the
    /// client or the socket is gone.
    using Reply = std::function<void(std::string)>;
    using Handler = std::function<void(std::string line, Reply reply)>;

    struct Listening {
        /// Absent if the socket could not be opened.
        std::unique_ptr<ControlSocket> socket;
        /// Whether a running instance has that name. Of several that start together, exactly one
        /// gets it.
        bool isTaken = false;
        /// Why there is no socket, in one line.
        std::string failure;
    };

    /// Handles requests to `name` (one for each display) on the main thread until it is destroyed.
    /// Needs a run loop. A slow or silent client does not block others.
    static Listening listen(std::string_view name, Handler handler);

    /// Sends a request to the running instance; absent if there is none or it does not reply within
    /// 2 s. Blocks, and needs neither a run loop nor an application object.
    static std::optional<std::string> request(std::string_view name, std::string_view line);

    ~ControlSocket();
    ControlSocket(const ControlSocket&) = delete;
    ControlSocket& operator=(const ControlSocket&) = delete;

  private:
    struct Client;

    ControlSocket(std::string path, int lock, int listener, Handler handler);
    void accept();
    void read(Client& client);
    void answer(Client& client, std::string line);
    void write(Client& client);
    void drop(Client& client);

    std::string path_;
    int lock_;
    int listener_;
    Handler handler_;
    /// Never shared; a late reply checks through a weak pointer whether its client still exists.
    std::list<std::shared_ptr<Client>> clients_;
    Handle readable_;
};

} // namespace larkspan::qt
