#include "SourceTree.h"

#include <algorithm>
#include <fstream>

namespace larkspan::house {

namespace fs = std::filesystem;

fs::path sourceRoot() {
    return LARKSPAN_SOURCE_ROOT;
}

std::vector<std::string> filesUnder(const std::vector<std::string>& folders,
                                    const std::vector<std::string>& endings) {
    std::vector<std::string> paths;
    for (const auto& folder : folders) {
        if (!fs::exists(sourceRoot() / folder)) continue;
        for (const auto& entry : fs::recursive_directory_iterator(sourceRoot() / folder)) {
            const auto ending = entry.path().extension().string();
            if (entry.is_regular_file() && std::ranges::find(endings, ending) != endings.end())
                paths.push_back(fs::relative(entry.path(), sourceRoot()).generic_string());
        }
    }
    std::ranges::sort(paths);
    return paths;
}

std::vector<SourceLine> linesOf(const std::string& path) {
    std::ifstream file(sourceRoot() / path);
    std::vector<SourceLine> lines;
    for (std::string text; std::getline(file, text);)
        lines.push_back({path, static_cast<int>(lines.size()) + 1, text});
    return lines;
}

std::string at(const SourceLine& line, const std::string& error) {
    return line.path + ":" + std::to_string(line.number) + ": " + error;
}

std::string listed(const std::vector<std::string>& errors) {
    std::string text;
    for (const auto& error : errors)
        text += "\n" + error;
    return text;
}

} // namespace larkspan::house
