#include "settings/RawValues.h"

#include <utility>

namespace larkspan {
namespace {

template <typename Enumeration, std::size_t count>
using Names = std::array<std::pair<Enumeration, std::string_view>, count>;

constexpr Names<BarMode, 2> modes{{
    {BarMode::vantrel, "vantrel"},
    {BarMode::systemDock, "systemDock"},
}};
constexpr Names<BarStyle, 2> styles{{
    {BarStyle::bar, "bar"},
    {BarStyle::island, "island"},
}};
constexpr Names<GlassKind, 2> glasses{{
    {GlassKind::clear, "clear"},
    {GlassKind::regular, "regular"},
}};
constexpr Names<BarTool, 6> tools{{
    {BarTool::widgets, "widgets"},
    {BarTool::clipboard, "clipboard"},
    {BarTool::screenshot, "screenshot"},
    {BarTool::xcode, "xcode"},
    {BarTool::keepAwake, "keepAwake"},
    {BarTool::settings, "settings"},
}};

template <typename Enumeration, std::size_t count>
std::string_view nameOf(const Names<Enumeration, count>& names, Enumeration value) {
    for (const auto& [known, name] : names)
        if (known == value) return name;
    return {};
}

template <typename Enumeration, std::size_t count>
std::optional<Enumeration> valueOf(const Names<Enumeration, count>& names, std::string_view text) {
    for (const auto& [value, name] : names)
        if (name == text) return value;
    return std::nullopt;
}

} // namespace

std::string_view rawValue(BarMode mode) {
    return nameOf(modes, mode);
}
std::string_view rawValue(BarStyle style) {
    return nameOf(styles, style);
}
std::string_view rawValue(GlassKind glass) {
    return nameOf(glasses, glass);
}
std::string_view rawValue(BarTool tool) {
    return nameOf(tools, tool);
}

template <>
std::optional<BarMode> fromRawValue(std::string_view text) {
    return valueOf(modes, text);
}
template <>
std::optional<BarStyle> fromRawValue(std::string_view text) {
    return valueOf(styles, text);
}
template <>
std::optional<GlassKind> fromRawValue(std::string_view text) {
    return valueOf(glasses, text);
}
template <>
std::optional<BarTool> fromRawValue(std::string_view text) {
    return valueOf(tools, text);
}

} // namespace larkspan
