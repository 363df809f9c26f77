#pragma once

#include <optional>
#include <string_view>

namespace larkspan::sim {

/// What only the user can grant.
enum class Permission { accessibility, screenRecording };

/// "accessibility" or "screenRecording".
std::string_view permissionName(Permission permission);
std::optional<Permission> permissionNamed(std::string_view name);

/// What the system shows the user about the program's permissions.
class Privacy {
  public:
    /// The question that is on the screen.
    const std::optional<Permission>& prompt() const { return prompt_; }
    /// The permission whose list the system's settings show; absent while they are closed.
    const std::optional<Permission>& pane() const { return pane_; }

    /// The program asks for it. For Screen Recording the user is asked only once.
    void ask(Permission permission);
    /// The user answers the question: has the settings opened, or denies.
    void answer(bool opensSettings);
    /// Opens the settings when the address is theirs; answers whether it is.
    bool open(std::string_view url);
    void showPane(Permission permission) { pane_ = permission; }
    void closePane() { pane_.reset(); }

  private:
    std::optional<Permission> prompt_;
    std::optional<Permission> pane_;
    bool hasAskedForScreen_ = false;
};

} // namespace larkspan::sim
