// SPDX-License-Identifier: MIT
#include "Platform/CupsPrintServer.h"

#include "Platform/CupsQuery.h"
#include "Platform/IppAnswer.h"
#include "Platform/OwnProcess.h"
#include "Platform/SystemPrintServer.h"

#include <string_view>

namespace {

constexpr const char* kNotInTime =
    "The print system does not answer: it sent no complete answer in time. "
    "Is its service, usually \"cups\", running well?";
constexpr const char* kNotUnderstood =
    "The print system's answer is incomplete or cannot be understood.";
constexpr const char* kCrashed = "The print system was not asked: its library, libcups, ended in a "
                                 "crash. Try again, or name the printer by its address.";
constexpr const char* kNoProcess =
    "The print system was not asked: the computer is too busy. Try again later.";

// The reason why there is no answer to look at; empty if there is one.
std::string reasonOf(OwnProcessEnd end, std::string_view result)
{
    if (end == OwnProcessEnd::timeOver)
        return kNotInTime;
    if (end == OwnProcessEnd::notStarted)
        return kNoProcess;
    if (end == OwnProcessEnd::failed)
        return kCrashed;
    if (end == OwnProcessEnd::done && result.starts_with(kRefused))
        return std::string(result.substr(1));
    return result.starts_with(kAnswered) ? "" : kNotUnderstood;
}

} // namespace

bool CupsPrintServer::queues(std::vector<PrintQueue>& found, std::string& reason)
{
    found.clear();
    // Opening a connection gives up earlier, so that it can say so.
    const auto toConnect = m_limit - m_limit / 10;
    std::string result;
    const auto end =
        inOwnProcess([&](int out) { queryCups(out, toConnect); },
                     std::chrono::steady_clock::now() + m_limit, kLongestAnswer + 1, result);
    reason = reasonOf(end, result);
    if (!reason.empty())
        return false;
    IppAnswer answer;
    if (!readIppAnswer(std::string_view(result).substr(1), answer)) {
        reason = kNotUnderstood;
        return false;
    }
    found = std::move(answer.queues);
    return true;
}

std::unique_ptr<PrintServer> makeSystemPrintServer()
{
    return std::make_unique<CupsPrintServer>();
}
