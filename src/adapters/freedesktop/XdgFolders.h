#pragma once

#include "adapters/freedesktop/Environment.h"

#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// Where the desktop keeps the user's files and everybody's, each without a trailing slash, the
/// more important folder first. Relative paths in the environment are ignored, as the rules for
/// these folders demand.
struct XdgFolders {
    std::string home;
    std::string configHome;
    std::string dataHome;
    std::vector<std::string> configDirs;
    std::vector<std::string> dataDirs;
    /// The names of the running desktop, such as "XFCE"; empty under a bare window manager.
    std::vector<std::string> currentDesktops;
    /// The forms of the user's language under which a translation may stand, best first: "de_AT",
    /// "de".
    std::vector<std::string> locales;

    explicit XdgFolders(const Environment& environment);

    /// `dataHome`, then `dataDirs`.
    std::vector<std::string> allDataDirs() const;
    /// `configHome`, then `configDirs`.
    std::vector<std::string> allConfigDirs() const;
    /// Where our own settings lie.
    std::string ownConfigFolder() const { return configHome + "/larkspan"; }
};

} // namespace larkspan::freedesktop
