#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace larkspan {

/// The URL of a file at an absolute path. The URL of an application bundle, which is a folder, ends
/// with a slash.
std::string fileUrl(std::string_view path);

/// The path of a file URL, without a slash at its end; absent for any other text.
std::optional<std::string> pathOfFileUrl(std::string_view url);

} // namespace larkspan
