#include "adapters/freedesktop/entries/ExecLine.h"

#include <QString>
#include <QUrl>

#include <algorithm>
#include <iterator>
#include <utility>

namespace larkspan::freedesktop {

namespace {

using Arguments = std::vector<std::string>;

bool isFieldCode(std::string_view argument) {
    return argument.size() == 2 && argument[0] == '%';
}

/// A URL from a path, and a path from a file URL; other texts are returned unchanged.
std::string asAddress(const std::string& file) {
    if (!file.starts_with('/')) return file;
    return QUrl::fromLocalFile(QString::fromStdString(file)).toEncoded().toStdString();
}

std::string asPath(const std::string& file) {
    if (!file.starts_with("file:")) return file;
    return QUrl(QString::fromStdString(file)).toLocalFile().toStdString();
}

/// The argument with the field codes inside it replaced; unknown and deprecated ones are removed.
std::string expanded(std::string_view argument, const DesktopEntry& entry,
                     const std::string& file) {
    std::string result;
    for (std::size_t index = 0; index < argument.size(); ++index) {
        if (argument[index] != '%' || index + 1 == argument.size()) {
            result += argument[index];
            continue;
        }
        switch (argument[++index]) {
        case '%':
            result += '%';
            break;
        case 'c':
            result += entry.name;
            break;
        case 'k':
            result += entry.path;
            break;
        case 'f':
        case 'F':
            result += asPath(file);
            break;
        case 'u':
        case 'U':
            result += asAddress(file);
            break;
        default:
            break;
        }
    }
    return result;
}

void appendArgument(Arguments& line, const std::string& argument, const DesktopEntry& entry,
                    const Arguments& files) {
    if (argument == "%F" || argument == "%U") {
        std::ranges::transform(files, std::back_inserter(line),
                               argument == "%F" ? asPath : asAddress);
    } else if (argument == "%i") {
        if (!entry.icon.empty()) line.insert(line.end(), {"--icon", entry.icon});
    } else {
        std::string text = expanded(argument, entry, files.empty() ? "" : files.front());
        // A code that expands to nothing adds no argument; an argument written as "" is kept.
        const bool vanished = text.empty() && isFieldCode(argument);
        if (!vanished) line.push_back(std::move(text));
    }
}

bool takesSeveral(const Arguments& arguments) {
    return std::ranges::any_of(arguments,
                               [](const auto& each) { return each == "%F" || each == "%U"; });
}

} // namespace

std::optional<Arguments> splitExec(std::string_view exec) {
    Arguments arguments;
    std::string argument;
    bool isInside = false;
    bool isQuoted = false;
    for (std::size_t index = 0; index < exec.size(); ++index) {
        const char character = exec[index];
        if (character == '"') {
            isQuoted = !isQuoted;
            isInside = true;
        } else if (character == '\\' && index + 1 < exec.size()) {
            argument += exec[++index];
            isInside = true;
        } else if (!isQuoted && (character == ' ' || character == '\t' || character == '\n')) {
            if (isInside) arguments.push_back(std::exchange(argument, {}));
            isInside = false;
        } else {
            argument += character;
            isInside = true;
        }
    }
    if (isQuoted) return std::nullopt;
    if (isInside) arguments.push_back(std::move(argument));
    if (arguments.empty() || arguments.front().empty()) return std::nullopt;
    return arguments;
}

std::vector<Arguments> commandLines(const DesktopEntry& entry, std::string_view exec,
                                    const std::vector<std::string>& files) {
    const auto arguments = splitExec(exec);
    if (!arguments) return {};
    std::vector<std::vector<std::string>> rounds;
    if (files.size() < 2 || takesSeveral(*arguments))
        rounds.push_back(files);
    else
        for (const auto& file : files)
            rounds.push_back({file});
    std::vector<Arguments> lines;
    for (const auto& round : rounds) {
        Arguments line;
        for (const auto& argument : *arguments)
            appendArgument(line, argument, entry, round);
        lines.push_back(std::move(line));
    }
    return lines;
}

std::optional<std::string> soleProgram(std::string_view exec) {
    const auto arguments = splitExec(exec);
    if (!arguments) return std::nullopt;
    const bool isSole = std::all_of(arguments->begin() + 1, arguments->end(), [](const auto& each) {
        return isFieldCode(each) || each.starts_with('-');
    });
    return isSole ? std::optional(arguments->front()) : std::nullopt;
}

bool takesAddresses(std::string_view exec) {
    return exec.find("%u") != std::string_view::npos || exec.find("%U") != std::string_view::npos;
}

} // namespace larkspan::freedesktop
