#pragma once

#include "adapters/qt/PictureFile.h"

#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// One icon theme, which may lie in several base folders. Knows which of the folders its index
/// names exist; reads no icon.
class IconThemeFolder {
  public:
    using Files = std::vector<qt::PictureFile::File>;

    IconThemeFolder(const std::string& name, const std::vector<std::string>& baseFolders);

    /// False when no base folder has a theme of that name.
    bool exists() const { return !places_.empty(); }
    /// The themes to look in when this one lacks an icon.
    const std::vector<std::string>& inherited() const { return inherited_; }
    /// The files of the icon at its several sizes: those among the icons of applications, else
    /// those of any other kind. Empty when the theme has no such icon.
    Files files(const std::string& icon) const;

  private:
    struct Folder {
        std::string path;
        /// What the icons in it are made for; 0 for any size.
        int pixels = 0;
    };
    /// The folders of some kinds of icons.
    struct Folders {
        std::vector<Folder> folders;
        /// Those that do not exist have been left out.
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
