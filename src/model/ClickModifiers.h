#pragma once

namespace larkspan {

/// What a click is made with besides the plain button, in a Mac's words; which keys and buttons
/// stand for them is the view's to say.
struct ClickModifiers {
    bool option = false;
    bool command = false;
    /// Another instance of the app is asked for.
    bool newInstance = false;

    bool operator==(const ClickModifiers&) const = default;
};

} // namespace larkspan
