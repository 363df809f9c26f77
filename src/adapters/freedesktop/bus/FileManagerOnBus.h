#pragma once

#include <QObject>

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The file manager as the session bus knows it. The bus is first touched when a file is shown.
/// Main thread only.
class FileManagerOnBus {
  public:
    /// `openFolder` stands in where no file manager answers on the bus.
    explicit FileManagerOnBus(std::function<void(const std::string& folder)> openFolder);

    /// Shows the file selected in its folder.
    void reveal(const std::string& path);

  private:
    std::function<void(const std::string&)> openFolder_;
    /// Ends the wait for an answer.
    QObject waiting_;
};

} // namespace larkspan::freedesktop
