#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace larkspan::freedesktop {

/// Walks the lines of a key file (desktop entries, icon themes, lists of default applications),
/// telling the group, the key and the raw value of each entry in order. Comments, empty lines and
/// lines that are none of these are passed over. `visit` answers whether to go on.
void readKeyFile(std::string_view text,
                 const std::function<bool(std::string_view group, std::string_view key,
                                          std::string_view value)>& visit);

/// A raw value with its escapes (\s \n \t \r \\ \;) resolved.
std::string unescaped(std::string_view value);

/// The whole text of a small file; empty when it cannot be read.
std::string readText(const std::string& path);

} // namespace larkspan::freedesktop
