#pragma once

#include "platform/Geometry.h"
#include "platform/Handle.h"
#include "platform/Identifiers.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace larkspan {

/// The platform's error codes.
enum class AXError : std::int32_t {
    success = 0,
    failure = -25200,
    illegalArgument = -25201,
    invalidUIElement = -25202,
    /// The app is busy or hung: it did not reply within the messaging time-out.
    cannotComplete = -25204,
    attributeUnsupported = -25205,
    actionUnsupported = -25206,
    apiDisabled = -25211,
    noValue = -25212,
};

/// An element of an app's Accessibility tree. Opaque to all but the adapter that made it. If what
/// it refers to is gone, every call returns `invalidUIElement`.
class AXElement {
  public:
    virtual ~AXElement() = default;
};
using AXElementRef = std::shared_ptr<const AXElement>;

using AXValue = std::variant<bool, std::int64_t, double, std::string, Point, Size, Rect,
                             AXElementRef, std::vector<AXElementRef>>;

struct AXAttribute {
    AXError error = AXError::success;
    /// Absent unless `error` is success.
    std::optional<AXValue> value;

    /// The value if it has that type, else nullptr.
    template <typename T>
    const T* as() const {
        return value ? std::get_if<T>(&*value) : nullptr;
    }
    template <typename T>
    T valueOr(T fallback) const {
        const T* typed = as<T>();
        return typed ? *typed : std::move(fallback);
    }
};

/// The Accessibility interface. Calls go to other processes and may block up to the messaging
/// time-out; any thread may make them. Geometry is in display coordinates.
class Accessibility {
  public:
    using RemoteToken = std::array<std::uint8_t, 20>;
    virtual ~Accessibility() = default;

    virtual bool isProcessTrusted() const = 0;
    /// Asks for trust; the system may show its own prompt. Returns whether the program is trusted
    /// now.
    virtual bool requestTrust() = 0;

    virtual AXElementRef createSystemWide() const = 0;
    virtual AXElementRef createApplication(ProcessId pid) const = 0;
    /// An element from its token; nullptr if the system has no such function.
    virtual AXElementRef createWithRemoteToken(const RemoteToken& token) const = 0;

    /// If set on the system-wide element, it is valid for every call of this process. Seconds; 0 is
    /// the default.
    virtual AXError setMessagingTimeout(const AXElementRef& element, float seconds) const = 0;
    virtual AXAttribute attribute(const AXElementRef& element, std::string_view name) const = 0;
    virtual AXError setAttribute(const AXElementRef& element, std::string_view name,
                                 const AXValue& value) const = 0;
    virtual AXError performAction(const AXElementRef& element, std::string_view action) const = 0;
    virtual std::optional<ProcessId> pid(const AXElementRef& element) const = 0;
    /// The window server's number of a window element; absent once the window is gone.
    virtual std::optional<WindowId> window(const AXElementRef& element) const = 0;

    /// Calls back on the main thread when the app sends that notification about the element (for an
    /// application, also about any of its windows), until the handle ends, which must be on the
    /// main thread. Several notifications may be combined into one call. Returns an empty handle if
    /// the app does not respond or the element is gone. A hung app sends nothing. Whether the
    /// windows of a dead app are reported as destroyed depends on the desktop.
    virtual Handle observe(const AXElementRef& element, std::string_view notification,
                           std::function<void()> callback) const = 0;
};

} // namespace larkspan
