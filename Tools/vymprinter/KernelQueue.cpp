// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/KernelQueue.h"

#include <array>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace vymprinter {
namespace {

constexpr std::size_t kEventsAtOnce = 32;

} // namespace

KernelQueue::KernelQueue(std::size_t tags)
    : m_requests(tags), m_event(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (::syscall(SYS_io_setup, tags, &m_context) != 0)
        m_context = 0;
}

KernelQueue::~KernelQueue()
{
    if (m_context != 0)
        ::syscall(SYS_io_destroy, m_context); // cancels outstanding transfers
}

bool KernelQueue::read(int file, std::span<std::uint8_t> buffer, std::size_t tag)
{
    return submit(file, buffer.data(), buffer.size(), IOCB_CMD_PREAD, tag);
}

bool KernelQueue::write(int file, std::span<const std::uint8_t> bytes, std::size_t tag)
{
    return submit(file, bytes.data(), bytes.size(), IOCB_CMD_PWRITE, tag);
}

bool KernelQueue::submit(int file, const void* buffer, std::size_t size, unsigned operation,
                         std::size_t tag)
{
    auto& request = m_requests.at(tag);
    request = {};
    request.aio_data = tag;
    request.aio_lio_opcode = static_cast<std::uint16_t>(operation);
    request.aio_fildes = static_cast<std::uint32_t>(file);
    request.aio_buf = reinterpret_cast<std::uintptr_t>(buffer);
    request.aio_nbytes = size;
    request.aio_flags = IOCB_FLAG_RESFD;
    request.aio_resfd = static_cast<std::uint32_t>(m_event.get());
    std::array<iocb*, 1> list = {&request};
    return ::syscall(SYS_io_submit, m_context, 1L, list.data()) == 1;
}

void KernelQueue::cancel(std::size_t tag)
{
    io_event unused{};
    ::syscall(SYS_io_cancel, m_context, &m_requests.at(tag), &unused);
}

std::vector<KernelQueue::Ended> KernelQueue::ended()
{
    std::uint64_t count = 0;
    static_cast<void>(
        !::read(m_event.get(), &count, sizeof count)); // the list below has the results
    std::vector<Ended> list;
    std::array<io_event, kEventsAtOnce> events{};
    timespec atOnce{};
    for (;;) {
        const auto got =
            ::syscall(SYS_io_getevents, m_context, 0L, long{events.size()}, events.data(), &atOnce);
        for (long i = 0; i < got; ++i) {
            const auto& event = events.at(static_cast<std::size_t>(i));
            list.push_back({event.data, event.res});
        }
        if (got < static_cast<long>(events.size()))
            return list;
    }
}

} // namespace vymprinter
