#pragma once

#include "platform/Handle.h"
#include "platform/Observed.h"
#include "platform/UserDefaults.h"

#include <array>
#include <optional>
#include <string_view>
#include <vector>

namespace larkspan {

enum class BarMode { vantrel, systemDock };
enum class BarStyle { bar, island };
enum class GlassKind { clear, regular };
/// The tools at the end of the bar; the declaration order is the order on the bar.
enum class BarTool { widgets, clipboard, screenshot, xcode, keepAwake, settings };

/// Red, green, blue and alpha, each 0...1.
using DotColor = std::array<double, 4>;

/// Each tool that the list names, in canonical order, and `settings` in any case: the row never
/// changes its order and the way to the settings is never lost.
std::vector<BarTool> canonicalTools(const std::vector<BarTool>& named);

/// The appearance model that every bar watches. Each property writes its key the moment it changes.
/// Main thread only.
class BarLook {
  public:
    /// `hasIslands`: whether the system is one on which the island style exists (macOS 26 or later,
    /// or a desktop that is no Mac).
    BarLook(UserDefaults& defaults, bool hasIslands);

    static constexpr double minimumGlassBlur = 3;

    bool hasIslands() const { return hasIslands_; }

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
    /// Always in canonical order, always with `settings`.
    Observed<std::vector<BarTool>> tools;
    Observed<bool> showsTrash;

    /// Style, glass, blur, island shape and dot colors go back to how they first were.
    void resetAppearance();

  private:
    void read();
    void writeChanges();
    template <typename T, typename Convert>
    void write(Observed<T>& property, std::string_view key, Convert convert);

    UserDefaults& defaults_;
    bool hasIslands_;
    std::vector<Handle> writes_;
};

} // namespace larkspan
