#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan {

/// One item of a menu, as a value: the system decides what a menu contains, a view only shows it.
struct MenuItem {
    enum class Kind { action, separator, heading, submenu };
    enum class Mark { none, check, diamond };

    Kind kind = Kind::action;
    std::string title;
    bool isEnabled = true;
    Mark mark = Mark::none;
    /// Called on the main thread when the item is chosen.
    std::function<void()> action;
    std::vector<MenuItem> submenu;
    /// The item shown instead while the Option key is held; nullptr for the same item.
    std::shared_ptr<const MenuItem> alternate;

    static MenuItem separator() { return {.kind = Kind::separator}; }
};

using Menu = std::vector<MenuItem>;

/// The first line of that title, in submenus and among those of the Option key too; nullptr when
/// there is none.
const MenuItem* findLine(const Menu& menu, std::string_view title);

} // namespace larkspan
