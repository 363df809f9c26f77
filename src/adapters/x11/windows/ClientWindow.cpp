#include "adapters/x11/windows/ClientWindow.h"

#include <algorithm>

namespace larkspan::x11 {

namespace {

bool has(const std::vector<xcb_atom_t>& list, xcb_atom_t atom) {
    return std::find(list.begin(), list.end(), atom) != list.end();
}

// The first known type counts, since windows list them in order of preference.
ClientWindow::Kind kindOf(const ClientProperties& facts, const Atoms& atoms) {
    using Kind = ClientWindow::Kind;
    for (const auto type : facts.types) {
        if (type == atoms.typeDock) return Kind::dock;
        if (type == atoms.typeDesktop) return Kind::desktop;
        if (type == atoms.typeUtility || type == atoms.typeToolbar || type == atoms.typeMenu ||
            type == atoms.typeSplash)
            return Kind::floating;
        if (type == atoms.typeNormal || type == atoms.typeDialog) {
            if (has(facts.states, atoms.stateSkipTaskbar)) return Kind::floating;
            return type == atoms.typeDialog ? Kind::dialog : Kind::normal;
        }
    }
    // Without a known type: windows of other types are short-lived; those with none are old
    // clients.
    if (!facts.types.empty() || has(facts.states, atoms.stateSkipTaskbar)) return Kind::floating;
    return facts.transientFor != 0 ? Kind::dialog : Kind::normal;
}

// WM_STATE is not enough: some window managers also make windows of other desktops iconic. A shaded
// window may be marked as hidden although its title bar is visible.
bool isMinimized(const ClientProperties& facts, const Atoms& atoms) {
    if (!has(facts.states, atoms.stateHidden)) return false;
    return !has(facts.states, atoms.stateShaded) || facts.wmState == iconicState;
}

Rect boundsOf(const ClientProperties& facts, bool isFullScreen, double scale) {
    Rect bounds = facts.area;
    if (!isFullScreen) {
        const double left = double(facts.frame.left) - double(facts.shadow.left);
        const double top = double(facts.frame.top) - double(facts.shadow.top);
        bounds.x -= left;
        bounds.y -= top;
        bounds.width += left + double(facts.frame.right) - double(facts.shadow.right);
        bounds.height += top + double(facts.frame.bottom) - double(facts.shadow.bottom);
    }
    return {bounds.x / scale, bounds.y / scale, bounds.width / scale, bounds.height / scale};
}

} // namespace

ClientWindow describe(const ClientProperties& facts, const Atoms& atoms, double scale) {
    ClientWindow window;
    window.id = facts.id;
    window.process = facts.pid;
    window.kind = kindOf(facts, atoms);
    window.title = facts.netName.empty() ? facts.name : facts.netName;
    window.alpha = facts.opacity ? double(*facts.opacity) / double(UINT32_MAX) : 1;
    window.isMinimized = isMinimized(facts, atoms);
    window.isFullScreen = has(facts.states, atoms.stateFullscreen);
    window.demandsAttention = facts.isUrgent || has(facts.states, atoms.stateDemandsAttention);
    window.hasIcon = facts.hasIcon || facts.hasHintIcon;
    window.supportsPings = facts.supportsPings;
    if (facts.desktop != everyDesktop) window.desktop = facts.desktop;
    window.isDesktopKnown = facts.desktop.has_value();
    window.bounds = boundsOf(facts, window.isFullScreen, scale);
    window.strut = facts.strut;
    return window;
}

} // namespace larkspan::x11
