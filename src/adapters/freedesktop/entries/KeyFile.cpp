#include "adapters/freedesktop/entries/KeyFile.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace larkspan::freedesktop {

namespace {

constexpr std::string_view blanks = " \t\r";
// A larger file is not read.
constexpr off_t largest = 4 << 20;

std::string_view trimmed(std::string_view text) {
    const auto first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace

void readKeyFile(
    std::string_view text,
    const std::function<bool(std::string_view, std::string_view, std::string_view)>& visit) {
    std::string_view group;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const auto line = trimmed(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (line.empty() || line.front() == '#') continue;
        if (line.front() == '[') {
            group = line.substr(1, line.rfind(']') - 1);
            continue;
        }
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        if (!visit(group, trimmed(line.substr(0, equals)), trimmed(line.substr(equals + 1))))
            return;
    }
}

std::string unescaped(std::string_view value) {
    std::string result;
    result.reserve(value.size());
    for (std::size_t index = 0; index < value.size(); ++index) {
        if (value[index] != '\\' || index + 1 == value.size()) {
            result += value[index];
            continue;
        }
        switch (value[++index]) {
        case 's':
            result += ' ';
            break;
        case 'n':
            result += '\n';
            break;
        case 't':
            result += '\t';
            break;
        case 'r':
            result += '\r';
            break;
        case '\\':
            result += '\\';
            break;
        case ';':
            result += ';';
            break;
        // Kept as it is: other escapes belong to the format of the value, as in `Exec`.
        default:
            result.append({'\\', value[index]});
        }
    }
    return result;
}

std::string readText(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) return {};
    struct stat status {};
    std::string text;
    if (fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size <= largest) {
        text.resize(static_cast<std::size_t>(status.st_size));
        const auto count = read(file, text.data(), text.size());
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    }
    close(file);
    return text;
}

} // namespace larkspan::freedesktop
