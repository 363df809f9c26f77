#include "dock/fileUrl.h"

#include <fmt/format.h>

#include <cctype>
#include <charconv>

namespace larkspan {

std::string fileUrl(std::string_view path) {
    constexpr std::string_view unreserved = "-._~/!$&'()*+,;=:@";
    std::string url = "file://";
    for (const char c : path) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte < 0x80 && std::isalnum(byte)) || unreserved.find(c) != std::string_view::npos)
            url += c;
        else
            url += fmt::format("%{:02X}", byte);
    }
    if (path.ends_with(".app")) url += '/';
    return url;
}

std::optional<std::string> pathOfFileUrl(std::string_view url) {
    constexpr std::string_view scheme = "file://";
    if (!url.starts_with(scheme)) return std::nullopt;
    url.remove_prefix(scheme.size());
    // A host such as "localhost" may be between the scheme and the path.
    const auto start = url.find('/');
    if (start == std::string_view::npos) return std::nullopt;
    url.remove_prefix(start);

    std::string path;
    for (std::size_t i = 0; i < url.size(); ++i) {
        unsigned value = 0;
        const char* digits = url.data() + i + 1;
        const bool isEscape = url[i] == '%' && i + 2 < url.size() &&
                              std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2;
        path += isEscape ? static_cast<char>(value) : url[i];
        if (isEscape) i += 2;
    }
    if (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

} // namespace larkspan
