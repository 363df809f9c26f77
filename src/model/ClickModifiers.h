#pragma once

namespace larkspan {

/// The modifiers of a click, named as on a Mac; the view maps keys and buttons to them.
struct ClickModifiers {
    bool option = false;
    bool command = false;
    /// Open another instance of the app.
    bool newInstance = false;

    bool operator==(const ClickModifiers&) const = default;
};

} // namespace larkspan
