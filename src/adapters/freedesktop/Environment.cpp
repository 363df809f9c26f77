#include "adapters/freedesktop/Environment.h"

#include <sys/stat.h>
#include <unistd.h>
#include <utility>

extern char** environ; // NOLINT(readability-redundant-declaration)

namespace larkspan::freedesktop {

namespace {

bool isProgram(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           access(path.c_str(), X_OK) == 0;
}

} // namespace

Environment::Environment(Variables variables)
    : variables_(std::move(variables)) {}

Environment Environment::ofProcess() {
    Variables variables;
    for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
        const std::string_view entry = *each;
        const auto equals = entry.find('=');
        if (equals == std::string_view::npos) continue;
        variables.emplace(entry.substr(0, equals), entry.substr(equals + 1));
    }
    return Environment(std::move(variables));
}

const std::string& Environment::value(std::string_view name) const {
    static const std::string none;
    const auto found = variables_.find(name);
    return found == variables_.end() ? none : found->second;
}

std::string Environment::findProgram(std::string_view name) const {
    std::string path(name);
    if (path.empty()) return {};
    if (path.find('/') != std::string::npos) return isProgram(path) ? path : std::string();
    const std::string& searched = value("PATH");
    for (const auto& folder : splitList(searched.empty() ? "/usr/bin:/bin" : searched, ':')) {
        std::string candidate = folder + "/" + path;
        if (isProgram(candidate)) return candidate;
    }
    return {};
}

std::vector<std::string> splitList(std::string_view list, char separator) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const auto end = list.find(separator);
        const auto part = list.substr(0, end);
        if (!part.empty()) parts.emplace_back(part);
        if (end == std::string_view::npos) break;
        list.remove_prefix(end + 1);
    }
    return parts;
}

} // namespace larkspan::freedesktop
