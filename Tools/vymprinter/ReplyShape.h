// Turns a reply into what really goes over the wire: whole and at once, or spoilt, cut up and
// slowed down by the faults that strike it.
//
// Threads:   any; keeps no state.
// Invariant: the same reply and faults always give the same bytes and times.
#pragma once
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/ReplyQueue.h"

namespace vymprinter {

// The parts of `reply` in order of sending; the reply leaves at `due`, parts of it later.
// `packetLimit` is the longest packet of this printer.
[[nodiscard]] std::vector<Outgoing> shapeReply(Bytes reply, const FaultSet& faults, Millis due,
                                               std::uint32_t packetLimit);
// Whether one of the faults changes a reply, so that there has to be one to change.
[[nodiscard]] bool changesReply(const FaultSet& faults);
// The status that a fault makes the printer answer, or nothing.
[[nodiscard]] std::optional<std::uint16_t> forcedStatus(const FaultSet& faults);

} // namespace vymprinter
