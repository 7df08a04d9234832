// SPDX-License-Identifier: MIT
// Serves one connection without a model: plays a recorded conversation, or passes the connection on
// to another printer and records it.
//
// Owns:    the sockets.
// Threads: one; each call blocks its caller's until the connection has ended.
#pragma once
#include "Tools/vymprinter/Replay.h"
#include "Tools/vymprinter/SessionRecorder.h"
#include "Tools/vymprinter/TcpListen.h"

namespace vymprinter {

// How the connection differed; empty if it went as recorded, or if `stop` became readable before an
// updater connected.
[[nodiscard]] std::string playSession(const Listening& listening, Replay replay, int stop);
// Passes the first connection on to the target and back; empty if the target could be reached.
[[nodiscard]] std::string relaySession(const Listening& listening, const Endpoint& target,
                                       SessionRecorder& recorder, int stop);

} // namespace vymprinter
