// SPDX-License-Identifier: MIT
#include "DevConn/LinkTrace.h"

#include <atomic>
#include <cerrno>

namespace {

std::atomic<LinkTrace*> g_trace{nullptr};

} // namespace

void setLinkTrace(LinkTrace* trace)
{
    g_trace = trace;
}

LinkTrace* linkTrace()
{
    return g_trace;
}

ConnectProblem connectProblemOf(int error)
{
    switch (error) {
    case 0:
        return ConnectProblem::none;
    case ECONNREFUSED:
        return ConnectProblem::refused;
    case ETIMEDOUT:
        return ConnectProblem::timedOut;
    case EHOSTUNREACH:
    case ENETUNREACH:
        return ConnectProblem::noRoute;
    default:
        return ConnectProblem::other;
    }
}
