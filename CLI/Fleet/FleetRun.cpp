// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetRun.h"

#include "CLI/Fleet/MemberProcess.h"

#include <array>
#include <cassert>
#include <map>
#include <sys/epoll.h>
#include <unistd.h>

namespace {

constexpr int kEventsAtOnce = 64; // the next wait returns the rest

class Run {
public:
    Run(const FleetOrders& orders, Session& session, FleetObserver& observer)
        : m_orders(orders), m_session(session), m_observer(observer),
          m_schedule(orders.count, orders.limits), m_events(epoll_create1(EPOLL_CLOEXEC))
    {
        MemberEnd open;
        open.memberClass = MemberClass::notStarted;
        m_ends.members.assign(orders.count, open);
    }
    ~Run()
    {
        if (m_events >= 0)
            close(m_events);
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    FleetEnds toTheEnd()
    {
        for (startMore(); !m_schedule.isOver(); startMore()) {
            const auto wake = m_session.waitReadable(m_events);
            if (wake == Wake::readable)
                hearAll();
            else if (wake == Wake::signal || wake == Wake::deadline)
                stop(wake);
            m_observer.waited();
        }
        m_ends.isCanaryBad = m_schedule.isCanaryBad();
        m_ends.hadTooManyFailures = m_schedule.hasTooManyFailures();
        return std::move(m_ends);
    }

private:
    struct Member {
        MemberProcess process;
        std::string result; // its own line
    };

    void startMore()
    {
        while (const auto index = m_schedule.take())
            start(*index);
    }
    void start(std::size_t index);
    void hearAll();
    void hear(std::size_t index);
    void end(std::size_t index, const std::string& line);
    void stop(Wake cause);

    const FleetOrders& m_orders;
    Session& m_session;
    FleetObserver& m_observer;
    FleetSchedule m_schedule;
    const int m_events;
    std::map<std::size_t, Member> m_running;
    FleetEnds m_ends;
};

void Run::start(std::size_t index)
{
    m_observer.started(index);
    MemberProcess process;
    const auto command = m_orders.commandOf(index);
    const auto problem = process.start(command.program, command.words, command.variable);
    epoll_event event{EPOLLIN, {.u64 = index}};
    if (problem.empty() && epoll_ctl(m_events, EPOLL_CTL_ADD, process.descriptor(), &event) == 0) {
        m_running.emplace(index, Member{std::move(process), {}});
        return;
    }
    process.stop(); // of one that cannot be heard
    process.finish();
    end(index, m_orders.withoutResult(index, problem, false));
}

void Run::hearAll()
{
    std::array<epoll_event, kEventsAtOnce> events{};
    const int count = epoll_wait(m_events, events.data(), kEventsAtOnce, 0);
    for (int i = 0; i < count; ++i)
        hear(events.at(static_cast<std::size_t>(i)).data.u64);
}

void Run::hear(std::size_t index)
{
    auto& member = m_running.at(index);
    for (auto& line : member.process.lines()) {
        if (isResultLine(line))
            member.result = std::move(line);
        else
            m_observer.line(index, line);
    }
    if (!member.process.isAtEnd())
        return;
    const auto how = member.process.finish();
    const bool hasResult = memberEnd(member.result).has_value();
    const auto result = hasResult ? member.result : m_orders.withoutResult(index, how, true);
    // Closing alone would not end the events while a process that is just being started still has a
    // copy of the pipe.
    epoll_ctl(m_events, EPOLL_CTL_DEL, member.process.descriptor(), nullptr);
    m_running.erase(index);
    end(index, result);
}

void Run::end(std::size_t index, const std::string& line)
{
    assert(index < m_ends.members.size());
    auto end = memberEnd(line).value_or(MemberEnd{});
    m_schedule.ended(isWell(end.memberClass));
    m_observer.ended(index, line, end);
    m_ends.members[index] = std::move(end);
}

void Run::stop(Wake cause)
{
    m_schedule.stop();
    if (m_ends.stop == Wake::tick)
        m_ends.stop = cause;
    // Each process knows its own time limit, which says so in its result.
    if (cause == Wake::signal) {
        for (const auto& [index, member] : m_running)
            member.process.stop();
    }
    m_observer.stopping(cause);
}

} // namespace

FleetEnds runFleet(const FleetOrders& orders, Session& session, FleetObserver& observer)
{
    assert(orders.commandOf && orders.withoutResult);
    return Run(orders, session, observer).toTheEnd();
}
