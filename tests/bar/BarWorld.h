#pragma once

#include "bar/BarInteraction.h"
#include "bar/RecordingPanels.h"
#include "model/ModelWorld.h"
#include "settings/BarSettings.h"

#include "MemoryDefaults.h"

namespace larkspan {

/// The model with what bars need over it. The Mac may be furnished before `start`.
struct BarWorld : ModelWorld {
    explicit BarWorld(std::string_view displays = "1440x900")
        : ModelWorld(displays) {}

    void start() {
        ModelWorld::start();
        overlay.emplace(tileActions, *refresh, panels.shown,
                        [] { return Menu{{.title = "Style"}}; });
    }
    std::unique_ptr<BarInteraction> makeInteraction() {
        return std::make_unique<BarInteraction>(mac.scheduler, store, look, *overlay);
    }

    int trashOpened = 0;
    MemoryDefaults defaults;
    BarSettings settings{defaults, true};
    BarLook look{settings};
    TileActions tileActions{
        store,
        click,
        menu,
        {.open = [this] { ++trashOpened; },
         .menu = [this] { return Menu{{.title = "Open", .action = [this] { ++trashOpened; }}}; }}};
    RecordingPanels panels;
    std::optional<BarOverlay> overlay;
};

} // namespace larkspan
