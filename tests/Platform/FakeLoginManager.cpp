// SPDX-License-Identifier: MIT
#include "tests/Platform/FakeLoginManager.h"

#include <algorithm>
#include <fcntl.h>
#include <poll.h>
#include <systemd/sd-bus.h>
#include <unistd.h>

namespace {

constexpr std::uint64_t kLook = 10'000; // microseconds between the thread's checks whether to end
constexpr std::chrono::seconds kStartLimit{30};

std::vector<std::string> daemonCommand(const TempFolder& folder, const std::string& address)
{
    folder.write("bus.conf",
                 "<busconfig><type>system</type><listen>" + address
                     + "</listen><policy context='default'><allow send_destination='*'/>"
                       "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>");
    return {VYMKIT_DBUS_DAEMON, "--config-file=" + (folder / "bus.conf"), "--nofork",
            "--print-address=1"};
}

int inhibit(sd_bus_message* message, void* manager, sd_bus_error*)
{
    return static_cast<FakeLoginManager*>(manager)->answer(message);
}

const sd_bus_vtable kManager[] = {
    SD_BUS_VTABLE_START(0),
    SD_BUS_METHOD("Inhibit", "ssss", "h", inhibit, SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_VTABLE_END,
};

bool isOpenAtTheOtherEnd(int readEnd)
{
    pollfd entry{readEnd, POLLIN, 0};
    return poll(&entry, 1, 0) == 0;
}

} // namespace

FakeLoginManager::FakeLoginManager(Manners manners)
    : m_address("unix:path=" + (m_folder / "bus")), m_manners(std::move(manners)),
      m_daemon(daemonCommand(m_folder, m_address))
{
    if (!m_daemon.waitForOutput("unix:", kStartLimit))
        throw std::runtime_error("no bus: " + m_daemon.errors());
    setenv("DBUS_SYSTEM_BUS_ADDRESS", m_address.c_str(), 1);
    m_thread = std::thread([this] { serve(); });
    while (!m_isReady)
        std::this_thread::yield();
}

FakeLoginManager::~FakeLoginManager()
{
    m_stop = true;
    m_thread.join();
    unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
    for (const int end : m_readEnds)
        close(end);
}

std::vector<Inhibition> FakeLoginManager::asked()
{
    const std::lock_guard hold(m_mutex);
    return m_asked;
}

std::size_t FakeLoginManager::held()
{
    const std::lock_guard hold(m_mutex);
    return static_cast<std::size_t>(
        std::count_if(m_readEnds.begin(), m_readEnds.end(), isOpenAtTheOtherEnd));
}

bool FakeLoginManager::hasAllBack()
{
    const auto end = std::chrono::steady_clock::now() + kStartLimit;
    while (held() != 0 && std::chrono::steady_clock::now() < end)
        std::this_thread::yield();
    return held() == 0;
}

int FakeLoginManager::answer(sd_bus_message* message)
{
    const char* texts[4] = {};
    sd_bus_message_read(message, "ssss", &texts[0], &texts[1], &texts[2], &texts[3]);
    const std::lock_guard hold(m_mutex);
    const Inhibition asked{texts[0], texts[1], texts[2], texts[3]};
    m_asked.push_back(asked);
    const auto reply = m_manners(asked);
    if (reply == Reply::nothing)
        return 1;
    if (reply == Reply::refuse)
        return sd_bus_reply_method_errorf(message, SD_BUS_ERROR_ACCESS_DENIED, "Permission denied");
    int ends[2] = {-1, -1};
    if (pipe2(ends, O_CLOEXEC) != 0)
        return -errno;
    m_readEnds.push_back(ends[0]);
    const int sent = sd_bus_reply_method_return(message, "h", ends[1]);
    close(ends[1]);
    return sent;
}

void FakeLoginManager::serve()
{
    sd_bus* bus = nullptr;
    sd_bus_open_system(&bus);
    sd_bus_add_object_vtable(bus, nullptr, "/org/freedesktop/login1",
                             "org.freedesktop.login1.Manager", kManager, this);
    sd_bus_request_name(bus, "org.freedesktop.login1", 0);
    m_isReady = true;
    while (!m_stop)
        if (sd_bus_process(bus, nullptr) == 0)
            sd_bus_wait(bus, kLook);
    sd_bus_flush_close_unref(bus);
}
