// SPDX-License-Identifier: MIT
// The kernel's asynchronous I/O: reads and writes that run while the program does other work. It
// allows more than one outstanding transfer of a USB pipe.
//
// Owns:      the queue and the descriptor that becomes readable when a transfer has ended.
// Threads:   one.
// Invariant: the kernel uses a buffer until ended() reports its transfer, or until the object is
//            destroyed.
#pragma once
#include "Tools/vymprinter/TcpListen.h"

#include <cstddef>
#include <linux/aio_abi.h>
#include <span>

namespace vymprinter {

class KernelQueue {
public:
    struct Ended {
        std::size_t tag;
        std::int64_t result; // bytes, or a negative error number
    };

    // Tags are numbers below `tags`; each identifies one transfer at a time.
    explicit KernelQueue(std::size_t tags);
    ~KernelQueue();
    KernelQueue(const KernelQueue&) = delete;
    KernelQueue& operator=(const KernelQueue&) = delete;

    [[nodiscard]] bool valid() const { return m_context != 0 && m_event.valid(); }
    [[nodiscard]] int event() const { return m_event.get(); }
    // False if the file accepts no transfer now.
    [[nodiscard]] bool read(int file, std::span<std::uint8_t> buffer, std::size_t tag);
    [[nodiscard]] bool write(int file, std::span<const std::uint8_t> bytes, std::size_t tag);
    // ended() reports it like any other transfer.
    void cancel(std::size_t tag);
    // The ended transfers, in the order in which they ended; never waits.
    [[nodiscard]] std::vector<Ended> ended();

private:
    [[nodiscard]] bool submit(int file, const void* buffer, std::size_t size, unsigned operation,
                              std::size_t tag);

    std::vector<iocb> m_requests; // by tag; the kernel knows them by their address
    aio_context_t m_context = 0;
    FileHandle m_event;
};

} // namespace vymprinter
