#pragma once

#include "platform/Handle.h"
#include "platform/Observed.h"
#include "settings/Setting.h"

#include <array>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

class BarSettings;

// The choices of the settings with the same names, in the order of the table.
enum class BarStyle { bar, island };
enum class GlassKind { clear, regular };
/// The tools at the end of the bar, in the order on the bar.
enum class BarTool { widgets, clipboard, screenshot, xcode, keepAwake, settings };

/// Red, green, blue and alpha, each 0...1.
using DotColor = std::array<double, 4>;

/// The settings that every bar watches. Each property writes its key when it changes. Main thread
/// only.
class BarLook {
  public:
    explicit BarLook(BarSettings& settings);

    Observed<BarStyle> style;
    Observed<GlassKind> glass;
    /// Points; at least 3.
    Observed<double> glassBlur;
    /// 0 gives square corners, 1 makes the ends half circles.
    Observed<double> islandRoundness;
    /// Points between the island and the bottom of the screen.
    Observed<double> islandInset;
    /// Points inside the island around its icons.
    Observed<double> islandPadding;
    /// Absent means the built-in color.
    Observed<std::optional<DotColor>> dotColor;
    Observed<std::optional<DotColor>> dotGray;
    /// Always in canonical order, and always with `settings`.
    Observed<std::vector<BarTool>> tools;
    Observed<bool> showsTrash;

    /// Whether the setting is one of the properties above.
    bool has(const Setting& setting) const { return find(setting) != nullptr; }
    /// For one of the properties above.
    SettingValue value(const Setting& setting) const;
    void set(const Setting& setting, const SettingValue& value);

    /// Resets style, glass, blur, island shape and dot colors to their defaults.
    void resetAppearance();

  private:
    /// A property and its row of the table.
    struct Property {
        const Setting* setting;
        std::function<SettingValue()> get;
        std::function<void(const SettingValue&)> set;
        Handle write;
    };
    template <typename T>
    void add(std::string_view key, Observed<T>& property);
    const Property* find(const Setting& setting) const;

    BarSettings& settings_;
    std::vector<Property> properties_;
};

} // namespace larkspan
