#include "adapters/sim/SimApplicationControl.h"

namespace larkspan::sim {

namespace {
constexpr int killSignal = 9;
constexpr int terminateSignal = 15;
} // namespace

bool SimApplicationControl::activate(ProcessId pid) {
    if (!world_.app(pid)) return false;
    if (world_.activationSeconds > 0)
        activation_ = world_.scheduler.after(world_.activationSeconds,
                                             [this, pid] { applications_.activate(pid); });
    else
        applications_.activate(pid);
    return true;
}

bool SimApplicationControl::hide(ProcessId pid) {
    if (!world_.app(pid)) return false;
    applications_.hide(pid);
    return true;
}

bool SimApplicationControl::unhide(ProcessId pid) {
    if (!world_.app(pid)) return false;
    applications_.unhide(pid);
    return true;
}

bool SimApplicationControl::terminate(ProcessId pid) {
    if (!world_.app(pid)) return false;
    applications_.quit(pid);
    return true;
}

bool SimApplicationControl::forceTerminate(ProcessId pid) {
    return sendSignal(pid, killSignal);
}

bool SimApplicationControl::sendSignal(ProcessId pid, int signal) {
    if (!world_.app(pid) || !world_.killPoint.mayAct()) return false;
    if (signal != killSignal && signal != terminateSignal) return true;
    if (dock_.owns(pid))
        dock_.restart();
    else
        applications_.kill(pid);
    return true;
}

} // namespace larkspan::sim
