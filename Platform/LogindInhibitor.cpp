// SPDX-License-Identifier: MIT
// Inhibitor locks of the login manager, requested over the system's message bus.
#include "Platform/SleepInhibitor.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <cassert>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace {

// Milliseconds for all requests together. A healthy login manager answers within a few.
constexpr std::uint64_t kLimit = 900;

constexpr const char* kEverything = "shutdown:sleep:idle:handle-lid-switch";

struct CloseBus {
    void operator()(sd_bus* bus) const { sd_bus_close_unref(bus); }
};
using Bus = std::unique_ptr<sd_bus, CloseBus>;

struct Answer {
    bool arrived = false;
    int lock = -1;
    std::string refusal;
};

// The message owns its descriptor.
int takeAnswer(sd_bus_message* message, void* place, sd_bus_error*)
{
    auto& answer = *static_cast<Answer*>(place);
    answer.arrived = true;
    int lent = -1;
    if (const auto* error = sd_bus_message_get_error(message); error != nullptr)
        answer.refusal = error->message != nullptr ? error->message : error->name;
    else if (sd_bus_message_read(message, "h", &lent) < 0)
        answer.refusal = "the login manager gave no lock";
    else
        answer.lock = fcntl(lent, F_DUPFD_CLOEXEC, 0);
    return 0;
}

std::string errorText(int negative)
{
    return std::strerror(-negative);
}

// Requests to the login manager, with one time limit for all of them.
class LoginManager {
public:
    LoginManager()
    {
        sd_bus* bus = nullptr;
        if (const int opened = sd_bus_open_system(&bus); opened < 0)
            m_problem = "no system bus: " + errorText(opened);
        m_bus.reset(bus);
    }

    [[nodiscard]] const std::string& problem() const { return m_problem; }

    Answer inhibit(const char* what, const char* who, const char* why, const char* mode)
    {
        Answer answer;
        sd_bus_slot* slot = nullptr;
        const int sent =
            sd_bus_call_method_async(m_bus.get(), &slot, "org.freedesktop.login1",
                                     "/org/freedesktop/login1", "org.freedesktop.login1.Manager",
                                     "Inhibit", takeAnswer, &answer, "ssss", what, who, why, mode);
        if (sent < 0)
            answer.refusal = errorText(sent);
        else
            await(answer);
        sd_bus_slot_unref(slot); // a late answer is dropped
        return answer;
    }

private:
    void await(Answer& answer)
    {
        while (!answer.arrived) {
            const auto now = tickMilliseconds();
            int done = now < m_deadline ? sd_bus_process(m_bus.get(), nullptr) : -ETIMEDOUT;
            if (done == 0)
                done = sd_bus_wait(m_bus.get(), (m_deadline - now) * kMicrosPerMilli);
            if (done < 0 && done != -EINTR) {
                answer.refusal = errorText(done);
                return;
            }
        }
    }

    static constexpr std::uint64_t kMicrosPerMilli = 1000;
    const std::uint64_t m_deadline = tickMilliseconds() + kLimit;
    Bus m_bus;
    std::string m_problem;
};

std::string held(const char* what, const char* mode)
{
    return std::string("sleep inhibitor: ") + what + ", " + mode;
}

} // namespace

// A user who is not at the machine's own seat gets only the last two locks.
SleepInhibitor::SleepInhibitor(const char* who, const char* why)
{
    LoginManager manager;
    if (!manager.problem().empty()) {
        m_note = "no sleep inhibitor: " + manager.problem();
        return;
    }
    const auto everything = manager.inhibit(kEverything, who, why, "block");
    add(everything.lock);
    if (holds()) {
        m_note = held(kEverything, "block");
        return;
    }
    std::string rest;
    for (const auto& [what, mode] : {std::pair("idle", "block"), std::pair("sleep", "delay")}) {
        const auto answer = manager.inhibit(what, who, why, mode);
        add(answer.lock);
        if (answer.lock >= 0)
            rest += (rest.empty() ? held(what, mode) : std::string("; ") + what + ", " + mode);
    }
    m_note =
        (rest.empty() ? "no sleep inhibitor" : rest + "; not more") + ": " + everything.refusal;
}

SleepInhibitor::~SleepInhibitor()
{
    for (const int lock : m_locks)
        if (lock >= 0)
            close(lock);
}

void SleepInhibitor::add(int lock)
{
    if (lock < 0)
        return;
    const auto place = std::find(m_locks.begin(), m_locks.end(), -1);
    assert(place != m_locks.end());
    *place = lock;
}
