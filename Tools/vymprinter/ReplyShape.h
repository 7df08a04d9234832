// SPDX-License-Identifier: MIT
// Turns a reply into the parts that are really sent: the whole at once, or corrupted, cut up and
// slowed down by faults.
//
// Threads:   any; stateless.
// Invariant: the same reply and faults always give the same bytes and times.
#pragma once
#include "Tools/vymprinter/Faults.h"
#include "Tools/vymprinter/ReplyQueue.h"

namespace vymprinter {

// The parts of `reply` in order of sending; the reply leaves at `due`, parts of it later.
// `packetLimit` is the longest packet of this printer.
[[nodiscard]] std::vector<Outgoing> shapeReply(Bytes reply, const FaultSet& faults, Millis due,
                                               std::uint32_t packetLimit);
// Whether one of the faults changes a reply, so that a reply is needed.
[[nodiscard]] bool changesReply(const FaultSet& faults);
// The status with which a fault makes the printer answer; empty without such a fault.
[[nodiscard]] std::optional<std::uint16_t> forcedStatus(const FaultSet& faults);

} // namespace vymprinter
