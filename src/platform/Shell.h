#pragma once

#include "platform/Handle.h"
#include "platform/Menu.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

// What the program itself is given by the desktop it runs on. Main thread only.

/// The running program.
class HostApplication {
  public:
    virtual ~HostApplication() = default;
    /// Brings the program's own windows to the front.
    virtual void activate() = 0;
    /// Ends the run loop soon; the delegate's will-terminate runs before the process ends.
    virtual void terminate() = 0;
    /// What runs where, in one line for reports: the program, its version and the system.
    virtual std::string description() const = 0;
};

/// An icon in the system's status bar.
struct StatusItem {
    /// The name of a system symbol, such as "dock.rectangle".
    std::string symbol;
    std::string accessibilityDescription;
    Menu menu;
};

class StatusBar {
  public:
    virtual ~StatusBar() = default;
    /// Shows the item until its handle ends.
    virtual Handle show(StatusItem item) = 0;
};

/// The login item of the program itself. The status is the system's and may change at any time.
class LoginItem {
  public:
    enum class Status { notRegistered, enabled, requiresApproval, notFound };
    virtual ~LoginItem() = default;
    virtual Status status() const = 0;
    /// Answers whether the program starts at login from now on, unless the user has yet to agree.
    virtual bool registerItem() = 0;
    /// False when the system refuses, and when there is nothing to take back.
    virtual bool unregisterItem() = 0;
    virtual void openSystemSettings() = 0;
};

/// The applications besides this program that are opened at login.
class LoginItems {
  public:
    virtual ~LoginItems() = default;
    /// Whether the application at that place is; absent where this system does not let it be known
    /// and changed.
    virtual std::optional<bool> opensAtLogin(std::string_view application) const = 0;
    /// Answers whether it is as asked for now.
    virtual bool setOpensAtLogin(std::string_view application, bool opens) = 0;
};

/// The user's Trash folder.
class TrashFolder {
  public:
    virtual ~TrashFolder() = default;
    /// How many entries the folder holds, the hidden ones too; absent when it cannot be read.
    virtual std::optional<std::size_t> entryCount() const = 0;
    virtual bool holdsDesktopServicesFile() const = 0;
    /// Shows the folder to the user.
    virtual void open() = 0;
    /// Whether every change is announced to subscribers, so that nothing needs to be polled.
    virtual bool announcesChanges() const = 0;
    virtual Handle subscribe(std::function<void()> callback) = 0;
};

} // namespace larkspan
