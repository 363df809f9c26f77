#include "ui/parts/Environment.h"

#include <QByteArray>

#include <array>
#include <utility>

namespace larkspan::ui {

namespace {

constexpr auto settings = std::to_array<std::pair<const char*, const char*>>({
    // Pictures are made by the processor: no driver to load, no GL memory, a frame in a
    // millisecond.
    {"QT_QUICK_BACKEND", "software"},
#ifndef Q_OS_MACOS
    {"QT_XCB_GL_INTEGRATION", "none"},
    // A change is on screen at once instead of 5 ms later.
    {"QT_QPA_UPDATE_IDLE_TIME", "0"},
    // No theme plugin: it would bring a widget toolkit into memory, of which a bar shows nothing.
    {"QT_QPA_PLATFORMTHEME", "generic"},
    // Files and timers are all that the run loop waits for.
    {"QT_NO_GLIB", "1"},
#endif
});

} // namespace

std::vector<std::string> prepareEnvironment() {
    std::vector<std::string> names;
    for (const auto& [name, value] : settings) {
        if (qEnvironmentVariableIsSet(name)) continue;
        qputenv(name, value);
        names.emplace_back(name);
    }
    return names;
}

} // namespace larkspan::ui
