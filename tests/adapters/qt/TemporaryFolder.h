#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace larkspan {

/// The test's own folder, which is removed with everything in it.
class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string name =
            (std::filesystem::temp_directory_path() / "larkspan-test-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        path_ = name;
    }
    ~TemporaryFolder() {
        std::error_code error;
        std::filesystem::remove_all(path_, error);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string path(const std::string& name = {}) const {
        return name.empty() ? path_ : path_ + "/" + name;
    }
    bool exists(const std::string& name) const {
        return std::filesystem::exists(std::filesystem::symlink_status(path(name)));
    }
    /// Writes a file, and creates its folders.
    std::string write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    std::string read(const std::string& name) const {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

  private:
    std::string path_;
};

} // namespace larkspan
