#pragma once

#include <QObject>

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The file manager on the session bus. The bus is not used before a file is shown. Main thread
/// only.
class FileManagerOnBus {
  public:
    /// `openFolder` is called if no file manager replies on the bus.
    explicit FileManagerOnBus(std::function<void(const std::string& folder)> openFolder);

    /// Shows the file selected in its folder.
    void reveal(const std::string& path);

  private:
    std::function<void(const std::string&)> openFolder_;
    /// Ends the wait for a reply.
    QObject waiting_;
};

} // namespace larkspan::freedesktop
