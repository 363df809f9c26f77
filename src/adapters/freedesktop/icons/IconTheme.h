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

/// The icons of the user's icon theme and those it inherits from. Main thread only; the images it
/// gives may be drawn from any thread.
class IconTheme {
  public:
    /// `themeName` overrides the desktop's setting.
    explicit IconTheme(const Environment& environment, std::string themeName = {});
    ~IconTheme();

    /// The icon of that name ("firefox") or absolute path; nullptr when there is none.
    ImageRef icon(std::string_view nameOrPath) const;
    /// What an application without an icon gets; never nullptr, even with no theme installed.
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
