#pragma once

#include "platform/PropertyValue.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

/// The stored value of a setting; absent while the setting follows the system.
using SettingValue = std::optional<PropertyValue>;

/// One row of the table of settings, which the store, the commands, the menus and the guide use.
struct Setting {
    enum class Kind {
        /// The word of one of `choices`.
        choice,
        number,
        /// Four numbers from 0 to 1: red, green, blue and alpha.
        color,
        /// The words of any of `choices`, in their order.
        list,
        flag,
    };
    /// The pane of the settings window. "Reset appearance" resets the settings in `appearance`.
    /// Those in `none` are internal to the program: commands cannot use them.
    enum class Pane { none, general, appearance, tools };

    struct Choice {
        /// The stored and typed form.
        std::string_view word;
        /// The shown form.
        std::string_view title = {};
    };
    /// The numbers that a user may choose. A stored number may be outside.
    struct Bounds {
        double least;
        double most;
        std::string_view unit = {};
    };

    std::string_view key;
    Kind kind;
    Pane pane = Pane::none;
    std::string_view title = {};
    /// Explains the setting if its title does not.
    std::string_view sentence = {};
    /// In the order of the enumeration in the code.
    std::vector<Choice> choices = {};
    /// A word that the list always contains.
    std::string_view alwaysListed = {};
    Bounds bounds = {};
    /// Whether a stored number below the minimum is read as the minimum.
    bool raisesStored = false;
    /// The value if nothing, or nothing acceptable, is stored.
    SettingValue initial = std::nullopt;

    bool isOffered() const { return pane != Pane::none; }
};

/// All settings. `hasIslands`: whether the island style exists on this system (macOS 26 or later,
/// and every desktop that is not a Mac).
const std::vector<Setting>& settingsTable(bool hasIslands);

/// The row of that key; nullptr if there is none.
const Setting* findSetting(const std::vector<Setting>& table, std::string_view key);

/// The index of that word among the choices; absent if it is not one of them.
std::optional<std::size_t> choiceIndex(const Setting& setting, std::string_view word);

} // namespace larkspan
