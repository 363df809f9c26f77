#pragma once

#include "adapters/freedesktop/XdgFolders.h"
#include "platform/LoginItem.h"

#include <functional>
#include <string>

namespace larkspan::freedesktop {

/// The login item as our own desktop file in the user's autostart folder.
class LoginEntry : public LoginItem {
  public:
    /// `program` is the path of the executable to start; `open` shows a folder to the user.
    LoginEntry(const Environment& environment, std::string program,
               std::function<void(const std::string&)> open);

    Status status() const override;
    bool registerItem() override;
    bool unregisterItem() override;
    /// Shows the autostart folder: there is no common settings page for login items.
    void openSystemSettings() override;

  private:
    std::string folder_;
    std::string path_;
    std::string program_;
    std::function<void(const std::string&)> open_;
};

} // namespace larkspan::freedesktop
