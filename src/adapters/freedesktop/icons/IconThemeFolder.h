#pragma once

#include "adapters/qt/PictureFile.h"

#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// One icon theme, which may be in several base folders. Knows which folders of its index exist;
/// reads no icon.
class IconThemeFolder {
  public:
    using Files = std::vector<qt::PictureFile::File>;

    IconThemeFolder(const std::string& name, const std::vector<std::string>& baseFolders);

    /// False if no base folder has a theme with that name.
    bool exists() const { return !places_.empty(); }
    /// The themes to search if this one has no such icon.
    const std::vector<std::string>& inherited() const { return inherited_; }
    /// The files of the icon in its different sizes: those among the icons of applications, or else
    /// those of any other kind. Empty if the theme has no such icon.
    Files files(const std::string& icon) const;

  private:
    struct Folder {
        std::string path;
        /// The size the icons are made for; 0 for any size.
        int pixels = 0;
    };
    /// The folders of some kinds of icons.
    struct Folders {
        std::vector<Folder> folders;
        /// Whether folders that do not exist have been removed.
        bool areChecked = false;
    };

    void readIndex(const std::string& text);
    static Files filesIn(Folders& folders, const std::string& icon);

    std::vector<std::string> places_;
    std::vector<std::string> inherited_;
    mutable Folders applications_;
    mutable Folders others_;
};

} // namespace larkspan::freedesktop
