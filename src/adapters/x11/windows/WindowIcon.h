#pragma once

#include "adapters/x11/connection/X11Connection.h"
#include "platform/Identifiers.h"
#include "platform/Image.h"

#include <mutex>
#include <string>

namespace larkspan::x11 {

/// The icon of the window itself. Requested from the X server when it is first drawn, and cached,
/// since the window may be gone the next time. Must not outlive the connection.
class WindowIcon : public Image {
  public:
    WindowIcon(X11Connection& connection, WindowId window);

    const std::string& identity() const override { return identity_; }
    Bitmap bitmap(int pixels) const override;

  private:
    Bitmap read(int pixels) const;

    X11Connection& connection_;
    WindowId window_;
    std::string identity_;
    mutable std::mutex mutex_;
    /// The size that was chosen from those of the window.
    mutable Bitmap kept_;
    mutable int keptFor_ = 0;
};

} // namespace larkspan::x11
