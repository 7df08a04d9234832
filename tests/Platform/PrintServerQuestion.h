// SPDX-License-Identifier: MIT
// A query to the print server that CUPS_SERVER names, and its result.
#pragma once
#include "Platform/CupsPrintServer.h"

#include <cstdlib>
#include <future>
#include <string>
#include <vector>

struct PrintServerReply {
    bool isListed = false;
    std::vector<PrintQueue> queues;
    std::string reason;
    std::chrono::milliseconds took{0};

    [[nodiscard]] std::vector<std::string> identifiers() const
    {
        std::vector<std::string> names;
        for (const auto& queue : queues)
            names.push_back(queue.identifier.value_or("(none)"));
        return names;
    }
};

inline std::chrono::milliseconds since(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now()
                                                                 - start);
}

// On a thread of its own: libcups reads its settings once per thread.
inline PrintServerReply ask(const std::string& server,
                            std::chrono::milliseconds limit = CupsPrintServer::kAnswerLimit)
{
    setenv("CUPS_SERVER", server.c_str(), 1);
    setenv("HOME", "/nonexistent", 1);
    return std::async(std::launch::async,
                      [&] {
                          PrintServerReply reply;
                          reply.queues.emplace_back(); // must be removed by every call
                          const auto start = std::chrono::steady_clock::now();
                          reply.isListed =
                              CupsPrintServer(limit).queues(reply.queues, reply.reason);
                          reply.took = since(start);
                          return reply;
                      })
        .get();
}
