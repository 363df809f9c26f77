#pragma once

#include "adapters/freedesktop/XdgFolders.h"
#include "platform/Image.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace larkspan::freedesktop {

class IconThemeFolder;

/// The icons of the user's icon theme and of those it inherits from. Main thread only; the images
/// it returns may be drawn on any thread.
class IconTheme {
  public:
    /// `themeName` overrides the desktop's setting.
    explicit IconTheme(const Environment& environment, std::string themeName = {});
    ~IconTheme();

    /// The icon with that name ("firefox") or absolute path; nullptr if there is none.
    ImageRef icon(std::string_view nameOrPath) const;
    /// The image for an application without an icon; never nullptr, even if no theme is installed.
    ImageRef genericApplication() const;

  private:
    ImageRef lookUp(const std::string& name) const;
    void addTheme(const std::string& name) const;
    void loadThemes() const;

    XdgFolders folders_;
    std::string themeName_;
    mutable std::vector<std::string> baseFolders_;
    mutable std::vector<std::string> themeNames_;
    mutable std::vector<std::unique_ptr<IconThemeFolder>> themes_;
    mutable std::map<std::string, ImageRef, std::less<>> icons_;
};

} // namespace larkspan::freedesktop
