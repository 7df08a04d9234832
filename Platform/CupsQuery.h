// SPDX-License-Identifier: MIT
// The query for a print server's queues, through libcups. libcups, and what it brings along, can
// hang, crash or end the process where memory runs out or a server is hostile: so this is for a
// process of its own, see OwnProcess.
//
// Owns:    nothing.
// Threads: one at a time.
#pragma once
#include <chrono>

// Writes to the descriptor either kAnswered and the server's answer, an IPP message, or kRefused
// and the reason why there is none, a sentence for people. limit: for opening the connection;
// nothing else here has a limit of its own.
void queryCups(int out, std::chrono::milliseconds limit);
constexpr char kAnswered = '+';
constexpr char kRefused = '-';
