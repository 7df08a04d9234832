// One connection to the printer that is not a model: played from a recorded conversation, or passed
// on to another printer while it is recorded.
//
// Owns:    the sockets.
// Threads: one; each call blocks its caller's until the connection has ended.
#pragma once
#include "Tools/vymprinter/Replay.h"
#include "Tools/vymprinter/SessionRecorder.h"
#include "Tools/vymprinter/TcpListen.h"

namespace vymprinter {

// How the connection went wrong; empty where it went as recorded, and where `stop` became readable
// before an updater came.
[[nodiscard]] std::string playSession(const Listening& listening, Replay replay, int stop);
// The first connection goes to the target and back; empty where that could be reached.
[[nodiscard]] std::string relaySession(const Listening& listening, const Endpoint& target,
                                       SessionRecorder& recorder, int stop);

} // namespace vymprinter
