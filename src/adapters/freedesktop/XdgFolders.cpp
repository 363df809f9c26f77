#include "adapters/freedesktop/XdgFolders.h"

#include <algorithm>
#include <pwd.h>
#include <unistd.h>
#include <utility>

namespace larkspan::freedesktop {

namespace {

std::string withoutSlash(std::string path) {
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    return path;
}

std::string folder(const Environment& environment, std::string_view name,
                   const std::string& otherwise) {
    const std::string& value = environment.value(name);
    return value.starts_with('/') ? withoutSlash(value) : otherwise;
}

std::vector<std::string> folders(const Environment& environment, std::string_view name,
                                 std::string_view otherwise) {
    std::vector<std::string> result;
    for (auto& path : splitList(environment.value(name), ':')) {
        if (path.starts_with('/')) result.push_back(withoutSlash(std::move(path)));
    }
    return result.empty() ? splitList(otherwise, ':') : result;
}

std::string homeFolder(const Environment& environment) {
    const std::string& home = environment.value("HOME");
    if (home.starts_with('/')) return withoutSlash(home);
    const passwd* user = getpwuid(getuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

/// "de_AT.UTF-8@euro" gives "de_AT@euro", "de_AT", "de@euro", "de".
std::vector<std::string> localeForms(std::string locale) {
    if (locale.empty() || locale == "C" || locale == "POSIX" || locale.starts_with("C.")) return {};
    std::string modifier;
    if (const auto at = locale.find('@'); at != std::string::npos) {
        modifier = locale.substr(at);
        locale.erase(at);
    }
    locale.erase(std::min(locale.find('.'), locale.size()));
    const std::string language = locale.substr(0, locale.find('_'));
    std::vector<std::string> forms;
    for (const auto& name : {locale + modifier, locale, language + modifier, language}) {
        if (forms.empty() || forms.back() != name) forms.push_back(name);
    }
    return forms;
}

std::vector<std::string> userLocales(const Environment& environment) {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const std::string& value = environment.value(name);
        if (!value.empty()) return localeForms(value);
    }
    return {};
}

std::vector<std::string> withFirst(const std::string& first, const std::vector<std::string>& rest) {
    std::vector<std::string> all{first};
    all.insert(all.end(), rest.begin(), rest.end());
    return all;
}

} // namespace

XdgFolders::XdgFolders(const Environment& environment)
    : home(homeFolder(environment))
    , configHome(folder(environment, "XDG_CONFIG_HOME", home + "/.config"))
    , dataHome(folder(environment, "XDG_DATA_HOME", home + "/.local/share"))
    , configDirs(folders(environment, "XDG_CONFIG_DIRS", "/etc/xdg"))
    , dataDirs(folders(environment, "XDG_DATA_DIRS", "/usr/local/share:/usr/share"))
    , currentDesktops(splitList(environment.value("XDG_CURRENT_DESKTOP"), ':'))
    , locales(userLocales(environment)) {}

std::vector<std::string> XdgFolders::allDataDirs() const {
    return withFirst(dataHome, dataDirs);
}

std::vector<std::string> XdgFolders::allConfigDirs() const {
    return withFirst(configHome, configDirs);
}

} // namespace larkspan::freedesktop
