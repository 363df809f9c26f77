#pragma once

#include "adapters/freedesktop/entries/DesktopEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// The arguments of an `Exec` value with its quotes resolved and its field codes left in. Absent
/// when a quote is not closed or no program is named.
std::optional<std::vector<std::string>> splitExec(std::string_view exec);

/// The command lines that open the files or addresses with the application, its field codes
/// replaced: one, or one for each file when the application takes them one by one. Empty when
/// `exec` (the entry's own, or that of one of its actions) is malformed.
std::vector<std::vector<std::string>> commandLines(const DesktopEntry& entry, std::string_view exec,
                                                   const std::vector<std::string>& files);

/// The program, when the line starts it with nothing but options and files of the user's choice, so
/// that a process of this program is this application.
std::optional<std::string> soleProgram(std::string_view exec);

/// Whether the application can be given addresses and not only files.
bool takesAddresses(std::string_view exec);

} // namespace larkspan::freedesktop
