#include "adapters/freedesktop/FreedesktopTrash.h"

#include <filesystem>
#include <utility>

namespace larkspan::freedesktop {

FreedesktopTrash::FreedesktopTrash(const Environment& environment,
                                   std::function<void(const std::string&)> open)
    : folder_(XdgFolders(environment).dataHome + "/Trash/files")
    , open_(std::move(open))
    , watch_([this] { changed_.emit(); }) {
    watch_.add(folder_);
}

std::optional<std::size_t> FreedesktopTrash::entryCount() const {
    std::error_code error;
    std::size_t count = 0;
    for (auto file = std::filesystem::directory_iterator(folder_, error);
         !error && file != std::filesystem::directory_iterator(); file.increment(error)) {
        ++count;
    }
    // The folder is created when the first file is thrown away.
    if (error == std::errc::no_such_file_or_directory) return 0;
    if (error) return std::nullopt;
    return count;
}

bool FreedesktopTrash::holdsDesktopServicesFile() const {
    std::error_code error;
    return std::filesystem::exists(folder_ + "/.DS_Store", error);
}

void FreedesktopTrash::open() {
    open_(folder_);
}

Handle FreedesktopTrash::subscribe(std::function<void()> callback) {
    return changed_.subscribe(std::move(callback));
}

} // namespace larkspan::freedesktop
