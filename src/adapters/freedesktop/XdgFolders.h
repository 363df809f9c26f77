#pragma once

#include "adapters/freedesktop/Environment.h"

#include <string>
#include <vector>

namespace larkspan::freedesktop {

/// The folders of the user's and of the system's files, each without a trailing slash, the most
/// important one first. Relative paths in the environment are ignored, as the XDG base directory
/// specification requires.
struct XdgFolders {
    std::string home;
    std::string configHome;
    std::string dataHome;
    std::vector<std::string> configDirs;
    std::vector<std::string> dataDirs;
    /// The names of the running desktop, such as "XFCE"; empty under a bare window manager.
    std::vector<std::string> currentDesktops;
    /// The forms of the user's language in which a translation may be given, best first: "de_AT",
    /// "de".
    std::vector<std::string> locales;

    explicit XdgFolders(const Environment& environment);

    /// `dataHome`, then `dataDirs`.
    std::vector<std::string> allDataDirs() const;
    /// `configHome`, then `configDirs`.
    std::vector<std::string> allConfigDirs() const;
    /// Where our own settings are stored.
    std::string ownConfigFolder() const { return configHome + "/larkspan"; }
};

} // namespace larkspan::freedesktop
