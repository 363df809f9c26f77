#pragma once

#include "platform/Identifiers.h"
#include "spaces/Slot.h"

#include <map>
#include <set>
#include <string>

namespace larkspan {

using DisplaysByProcess = std::map<ProcessId, std::set<DisplayId>>;
using SlotsByProcess = std::map<ProcessId, std::set<Slot>>;

/// The log line of a read: for each process whose displays or Spaces changed, those that have
/// windows of it now and those that have none any more. Empty if none changed.
std::string windowChangeLine(const DisplaysByProcess& displaysBefore,
                             const SlotsByProcess& slotsBefore,
                             const DisplaysByProcess& displaysNow, const SlotsByProcess& slotsNow);

} // namespace larkspan
