#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace larkspan::house {

struct SourceLine {
    /// Relative to the root of the tree, such as "src/model/DockStore.h".
    std::string path;
    int number = 0;
    std::string text;
};

/// The root of the tree that this program was built from.
std::filesystem::path sourceRoot();

/// Every file under the given top folders with one of the given extensions, relative to the root,
/// sorted.
std::vector<std::string> filesUnder(const std::vector<std::string>& folders,
                                    const std::vector<std::string>& endings);

std::vector<SourceLine> linesOf(const std::string& path);

/// "path:line: what", one per line, as compilers print it.
std::string listed(const std::vector<std::string>& errors);

std::string at(const SourceLine& line, const std::string& error);

} // namespace larkspan::house
