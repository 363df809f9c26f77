#pragma once

#include "model/WindowFlights.h"

#include <functional>
#include <map>
#include <utility>

namespace larkspan {

/// Flights that take as long as a test says; at first none does. Pictures may be withheld.
class PlannedFlights : public WindowFlights {
  public:
    void takePictures(ProcessId pid, std::function<void()> ready) override {
        if (withholdsPictures)
            withheld[pid] = std::move(ready);
        else
            ready();
    }
    double fly(ProcessId pid, const Rect&, Direction direction) override {
        if (seconds > 0) flying[pid] = direction;
        return seconds;
    }
    void land(ProcessId pid) override { flying.erase(pid); }

    double seconds = 0;
    bool withholdsPictures = false;
    std::map<ProcessId, std::function<void()>> withheld;
    /// The pictures that are in the air.
    std::map<ProcessId, Direction> flying;
};

} // namespace larkspan
