#pragma once

#include "platform/SystemLog.h"

#include <functional>
#include <utility>

namespace larkspan::x11 {

/// X11 desktops have no log that programs share: the lines go to whoever started the program, if
/// they asked for them.
class X11SystemLog final : public SystemLog {
  public:
    /// `write` may be empty, and is called from any thread.
    explicit X11SystemLog(std::function<void(const std::string&)> write)
        : write_(std::move(write)) {}

    bool isEnabled(Level) const override { return write_ != nullptr; }
    void write(std::string_view, std::string_view category, Level level,
               const std::string& text) override {
        if (!write_) return;
        const char* mark = level == Level::error ? ": error: " : ": ";
        write_(std::string(category) + mark + text);
    }

  private:
    std::function<void(const std::string&)> write_;
};

} // namespace larkspan::x11
