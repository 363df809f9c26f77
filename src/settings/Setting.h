#pragma once

#include "platform/PropertyValue.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

/// The value of a setting as it is stored; absent while the setting follows the system.
using SettingValue = std::optional<PropertyValue>;

/// One row of the table of settings. The store, the commands, the menus and the guide go by it.
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
    /// Where the settings window shows it. "Reset appearance" resets what is under `appearance`.
    /// What is under `none` the program keeps for itself: it has no name in commands.
    enum class Pane { none, general, appearance, tools };

    struct Choice {
        /// As it is stored and typed.
        std::string_view word;
        /// As it is shown.
        std::string_view title = {};
    };
    /// The numbers that a person may choose. What is stored already may lie outside.
    struct Bounds {
        double least;
        double most;
        std::string_view unit = {};
    };

    std::string_view key;
    Kind kind;
    Pane pane = Pane::none;
    std::string_view title = {};
    /// Explains the setting where its title does not.
    std::string_view sentence = {};
    /// In the order of the enumeration that stands for them in the code.
    std::vector<Choice> choices = {};
    /// The word that a list always holds.
    std::string_view alwaysListed = {};
    Bounds bounds = {};
    /// A stored number below the least one reads as the least one.
    bool raisesStored = false;
    /// What holds while nothing, or nothing acceptable, is stored.
    SettingValue initial = std::nullopt;

    bool isOffered() const { return pane != Pane::none; }
};

/// All settings. `hasIslands`: whether the island style exists on this system (macOS 26 or later,
/// and every desktop that is not a Mac).
const std::vector<Setting>& settingsTable(bool hasIslands);

/// The row of that key; nullptr when there is none.
const Setting* findSetting(const std::vector<Setting>& table, std::string_view key);

/// The place of that word among the choices; absent when it is not one of them.
std::optional<std::size_t> choiceIndex(const Setting& setting, std::string_view word);

} // namespace larkspan
