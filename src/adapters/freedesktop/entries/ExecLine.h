#pragma once

#include "adapters/freedesktop/entries/DesktopEntry.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

/// The arguments of an `Exec` value, with quotes resolved and field codes kept. Absent if a quote
/// is not closed or there is no program.
std::optional<std::vector<std::string>> splitExec(std::string_view exec);

/// The command lines that open the files or URLs with the application, with its field codes
/// replaced: one, or one for each file if the application takes only one at a time. Empty if `exec`
/// (the entry's own, or that of one of its actions) is malformed.
std::vector<std::vector<std::string>> commandLines(const DesktopEntry& entry, std::string_view exec,
                                                   const std::vector<std::string>& files);

/// The program, if the line starts it only with options and the user's files, so that a process of
/// this program is this application.
std::optional<std::string> soleProgram(std::string_view exec);

/// Whether the application accepts URLs and not only files.
bool takesAddresses(std::string_view exec);

} // namespace larkspan::freedesktop
