#pragma once

namespace larkspan {

/// The login item of the program itself. The status is the system's and may change at any time.
/// Main thread only.
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

} // namespace larkspan
