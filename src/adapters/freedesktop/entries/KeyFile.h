#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace larkspan::freedesktop {

/// Reads a key file (desktop entries, icon themes, lists of default applications) and calls `visit`
/// with the group, the key and the raw value of each entry in order. Comments, empty lines and
/// invalid lines are skipped. `visit` returns whether to continue.
void readKeyFile(std::string_view text,
                 const std::function<bool(std::string_view group, std::string_view key,
                                          std::string_view value)>& visit);

/// A raw value with its escapes (\s \n \t \r \\ \;) resolved.
std::string unescaped(std::string_view value);

/// The whole text of a small file; empty if it cannot be read.
std::string readText(const std::string& path);

} // namespace larkspan::freedesktop
