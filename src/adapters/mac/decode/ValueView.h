#pragma once

#include "platform/PropertyValue.h"

#include <cmath>
#include <concepts>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace larkspan::mac {

/// A view of one value in a tree from the platform, which may have any shape. Each accessor returns
/// only a value of exactly that type; a number is an integer or a real number, never a boolean. A
/// missing member, or a member of something that is not a dictionary, is an empty view.
template <typename View>
concept ValueView = requires(const View& view, std::string_view key) {
    { view[key] } -> std::same_as<View>;
    { view.boolean() } -> std::same_as<std::optional<bool>>;
    { view.integer() } -> std::same_as<std::optional<std::int64_t>>;
    { view.real() } -> std::same_as<std::optional<double>>;
    { view.string() } -> std::same_as<std::optional<std::string>>;
    { view.data() } -> std::same_as<std::optional<Data>>;
    { view.array() } -> std::same_as<std::optional<std::vector<View>>>;
    { view.dictionary() } -> std::same_as<std::optional<std::vector<std::pair<std::string, View>>>>;
};

/// A finite number, stored as either type.
template <ValueView View>
std::optional<double> numberOf(const View& view) {
    if (const auto integer = view.integer()) return static_cast<double>(*integer);
    const auto real = view.real();
    return real && std::isfinite(*real) ? real : std::nullopt;
}

/// A boolean, stored as a boolean or a number.
template <ValueView View>
std::optional<bool> flagOf(const View& view) {
    if (const auto boolean = view.boolean()) return boolean;
    const auto number = numberOf(view);
    return number ? std::optional(*number != 0) : std::nullopt;
}

/// A whole number, stored as either type, in the range that a double represents exactly.
template <ValueView View>
std::optional<std::int64_t> wholeNumberOf(const View& view) {
    if (const auto integer = view.integer()) return integer;
    const auto real = numberOf(view);
    constexpr double exact = 9007199254740992.0; // 2^53
    if (!real || std::abs(*real) > exact || *real != std::trunc(*real)) return std::nullopt;
    return static_cast<std::int64_t>(*real);
}

/// A whole number that fits a signed type.
template <std::signed_integral Integer, ValueView View>
std::optional<Integer> integerOf(const View& view) {
    const auto number = wholeNumberOf(view);
    return number && std::in_range<Integer>(*number) ? std::optional(static_cast<Integer>(*number))
                                                     : std::nullopt;
}

/// An unsigned number. The platform stores it in a signed number of the same width, so a large one
/// looks negative.
template <std::unsigned_integral Integer, ValueView View>
std::optional<Integer> unsignedOf(const View& view) {
    const auto number = wholeNumberOf(view);
    if (!number) return std::nullopt;
    const bool fits =
        std::in_range<Integer>(*number) || std::in_range<std::make_signed_t<Integer>>(*number);
    return fits ? std::optional(static_cast<Integer>(*number)) : std::nullopt;
}

} // namespace larkspan::mac
