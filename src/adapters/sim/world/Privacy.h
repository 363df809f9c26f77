#pragma once

#include <optional>
#include <string_view>

namespace larkspan::sim {

/// Only the user can grant these.
enum class Permission { accessibility, screenRecording };

/// "accessibility" or "screenRecording".
std::string_view permissionName(Permission permission);
std::optional<Permission> permissionNamed(std::string_view name);

/// What the system shows the user about the program's permissions.
class Privacy {
  public:
    /// The prompt on the screen.
    const std::optional<Permission>& prompt() const { return prompt_; }
    /// The permission whose list the system's settings show; absent if they are closed.
    const std::optional<Permission>& pane() const { return pane_; }

    /// The program requests it. For Screen Recording, the user is prompted only once.
    void ask(Permission permission);
    /// The user's choice in the prompt: open the settings, or deny.
    void answer(bool opensSettings);
    /// Opens the settings if the URL is one of theirs; returns whether it is.
    bool open(std::string_view url);
    void showPane(Permission permission) { pane_ = permission; }
    void closePane() { pane_.reset(); }

  private:
    std::optional<Permission> prompt_;
    std::optional<Permission> pane_;
    bool hasAskedForScreen_ = false;
};

} // namespace larkspan::sim
