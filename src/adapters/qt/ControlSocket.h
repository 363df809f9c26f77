#pragma once

#include "platform/Handle.h"

#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace larkspan::qt {

/// The road on which a second start of the program, or a script, reaches the running one: a local
/// socket that only this user can open. One line asked, one answer given.
class ControlSocket {
  public:
    /// Gives the answer to one line: once, now or later, on the main thread. Costs nothing when the
    /// client or the socket has gone.
    using Reply = std::function<void(std::string)>;
    using Handler = std::function<void(std::string line, Reply reply)>;

    struct Listening {
        /// Absent when the socket could not be had.
        std::unique_ptr<ControlSocket> socket;
        /// A running instance has that name. Exactly one of several that start together gets it.
        bool isTaken = false;
        /// Why there is no socket, in one line.
        std::string failure;
    };

    /// Answers requests to `name` (one for each display) on the main thread until it ends. Needs a
    /// run loop. A client that is slow or silent holds up nobody.
    static Listening listen(std::string_view name, Handler handler);

    /// Asks the running instance; absent when there is none or it does not answer within 2 s.
    /// Blocks, and needs neither a run loop nor an application object.
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
    /// Shared with nobody; an answer that comes later looks whether its client is still there.
    std::list<std::shared_ptr<Client>> clients_;
    Handle readable_;
};

} // namespace larkspan::qt
