// Reads and writes that the kernel carries out while the program does something else: its
// asynchronous I/O, which is how more than one transfer of a USB pipe can be outstanding.
//
// Owns:      the queue and the descriptor that becomes readable when something has ended.
// Threads:   one.
// Invariant: a buffer that was handed in stays untouched until its end is told, or until the
//            object is gone.
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

    // Tags are numbers below `tags`, each for one transfer at a time.
    explicit KernelQueue(std::size_t tags);
    ~KernelQueue();
    KernelQueue(const KernelQueue&) = delete;
    KernelQueue& operator=(const KernelQueue&) = delete;

    [[nodiscard]] bool valid() const { return m_context != 0 && m_event.valid(); }
    [[nodiscard]] int event() const { return m_event.get(); }
    // False when the file takes nothing now.
    [[nodiscard]] bool read(int file, std::span<std::uint8_t> buffer, std::size_t tag);
    [[nodiscard]] bool write(int file, std::span<const std::uint8_t> bytes, std::size_t tag);
    // Its end is told like any other.
    void cancel(std::size_t tag);
    // What has ended, in that order; never waits.
    [[nodiscard]] std::vector<Ended> ended();

private:
    [[nodiscard]] bool submit(int file, const void* buffer, std::size_t size, unsigned operation,
                              std::size_t tag);

    std::vector<iocb> m_requests; // by tag; the kernel knows them by their address
    aio_context_t m_context = 0;
    FileHandle m_event;
};

} // namespace vymprinter
