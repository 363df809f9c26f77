#pragma once

namespace larkspan {

/// The login item of the program itself. The system owns the status, which may change at any time.
/// Main thread only.
class LoginItem {
  public:
    enum class Status { notRegistered, enabled, requiresApproval, notFound };
    virtual ~LoginItem() = default;
    virtual Status status() const = 0;
    /// Returns whether the program starts at login from now on, unless the user has yet to approve
    /// it.
    virtual bool registerItem() = 0;
    /// Returns false if the system refuses, and if it is not registered.
    virtual bool unregisterItem() = 0;
    virtual void openSystemSettings() = 0;
};

} // namespace larkspan
