#include "soak/day/Act.h"

namespace larkspan::soak {

namespace {

bool launch(Day& day, int app, int how) {
    if (day.mac.world().apps.size() >= Day::mostProcesses) return false;
    const sim::LaunchOptions ways[] = {
        {.opensWindow = true},
        {},
        {.launchSeconds = 0.4, .opensWindow = true},
        {.launchSeconds = 3, .opensWindow = true},
        {.opensWindow = true, .inBackground = true},
        {.inBackground = true},
        {.opensWindow = true, .hasBundle = false},
        {.policy = ActivationPolicy::accessory},
    };
    // There is only one Finder.
    day.mac.launch(Day::identifier(app + 1), ways[how]);
    return true;
}

bool openFromDisk(Day& day, int app, int) {
    if (day.mac.world().apps.size() >= Day::mostProcesses) return false;
    return day.mac.open("/Applications/app" + std::to_string(app + 1) + ".app");
}

/// What a user or the system does to one process of an app.
template <void (sim::SimMac::*method)(ProcessId)>
bool toProcess(Day& day, int app, int copy) {
    const auto pid = day.process(app, copy);
    if (pid) (day.mac.*method)(pid);
    return pid != 0;
}

bool quit(Day& day, int app, int copy) {
    const auto pid = day.process(app + 1, copy);
    return pid && day.mac.quit(pid);
}

bool crash(Day& day, int app, int copy) {
    const auto pid = day.process(app + 1, copy);
    if (pid) day.mac.kill(pid);
    return pid != 0;
}

bool install(Day& day, int app, int) {
    const auto identifier = Day::identifier(app + 1);
    if (day.mac.world().installed.contains(identifier)) return false;
    day.mac.install(identifier, "app" + std::to_string(app + 1));
    return true;
}

bool uninstall(Day& day, int app, int) {
    const auto identifier = Day::identifier(app + 1);
    if (!day.mac.world().installed.contains(identifier)) return false;
    day.mac.uninstall(identifier);
    return true;
}

} // namespace

std::vector<Act> appActs() {
    using sim::SimMac;
    constexpr int ordinary = Day::appCount - 1;
    return {
        {"launch", 40, ordinary, 8, launch},
        {"openFromDisk", 8, ordinary, 1, openFromDisk},
        {"quit", 14, ordinary, 3, quit},
        {"crash", 6, ordinary, 3, crash},
        {"hide", 16, Day::appCount, 3, toProcess<&SimMac::hide>},
        {"unhide", 10, Day::appCount, 3, toProcess<&SimMac::unhide>},
        {"activate", 16, Day::appCount, 3, toProcess<&SimMac::activate>},
        {"install", 3, ordinary, 1, install},
        {"uninstall", 2, ordinary, 1, uninstall},
    };
}

} // namespace larkspan::soak
