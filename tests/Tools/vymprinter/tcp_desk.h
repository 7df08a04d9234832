// SPDX-License-Identifier: MIT
// Printers on real sockets, for tests.
//
// Owns:    their sockets, their folder and the thread that serves them; all end with it.
// Threads: one; the printers are served on another.
#pragma once
#include "Tools/vymprinter/Store.h"
#include "Tools/vymprinter/TcpServer.h"
#include "tests/Tools/vymprinter/updater.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace vymprinter {

constexpr std::uint32_t kLoopback = 0x7F000001;

// An address of this process alone: no other program takes a port of it that has become free.
inline std::uint32_t ownLoopback()
{
    return 0x7F010000U | (static_cast<std::uint32_t>(::getpid()) & 0xFFFFU); // in 127.1
}

inline std::string contents(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// Printers that listen on real sockets, served on a thread of their own until the test ends.
class TcpDesk {
public:
    explicit TcpDesk(const PrinterModel& model = {}, const std::vector<std::string>& faults = {},
                     std::uint32_t printers = 1)
        : m_stop(::eventfd(0, EFD_CLOEXEC))
    {
        std::string pattern = std::filesystem::temp_directory_path() / "vymprinter-XXXXXX";
        m_folder = ::mkdtemp(pattern.data());
        for (const auto& endpoint : consecutive({ownLoopback(), 0}, printers))
            add(endpoint, model, faults);
        m_thread = std::thread([this] { m_server.run(m_stop.get()); });
    }
    explicit TcpDesk(const char* fault) : TcpDesk(PrinterModel(), {fault}) { }
    ~TcpDesk()
    {
        const std::uint64_t one = 1;
        EXPECT_EQ(::write(m_stop.get(), &one, sizeof one), 8);
        m_thread.join();
        std::filesystem::remove_all(m_folder);
    }
    TcpDesk(const TcpDesk&) = delete;
    TcpDesk& operator=(const TcpDesk&) = delete;

    const Endpoint& printer(std::size_t index = 0) const { return m_endpoints.at(index); }
    std::string stored(std::size_t index, const std::string& name) const
    {
        return contents(m_folder / std::to_string(index) / name);
    }
    bool hasFile(const std::string& name) const
    {
        return std::filesystem::exists(m_folder / "0" / name);
    }

private:
    void add(const Endpoint& endpoint, const PrinterModel& model,
             const std::vector<std::string>& faults)
    {
        auto listening = listenOn(endpoint);
        ASSERT_EQ(listening.error, "");
        const auto folder = m_folder / std::to_string(m_endpoints.size());
        m_stores.push_back(std::make_unique<Store>("printer", folder, true));
        ASSERT_EQ(m_stores.back()->error(), "");
        m_endpoints.push_back(listening.endpoint);
        Printer printer{model, {}, *m_stores.back()};
        for (const auto& spec : faults)
            printer.faults.push_back(parseFault(spec).fault.value());
        m_server.add(std::move(listening), std::move(printer));
    }

    FileHandle m_stop;
    std::filesystem::path m_folder;
    std::vector<std::unique_ptr<Store>> m_stores;
    std::vector<Endpoint> m_endpoints;
    TcpServer m_server;
    std::thread m_thread;
};

inline std::string text(const requests::Packet& bytes)
{
    return {bytes.begin(), bytes.end()};
}

// Fetches TargetInfo.txt block by block.
inline std::string targetInfo(Updater& updater)
{
    std::string all;
    auto block = updater.ask(requests::getFile());
    while (block.size() >= 28) {
        all.append(block.begin() + 28, block.end());
        if (block[11] != 0)
            break;
        block = updater.reply();
    }
    return all;
}

} // namespace vymprinter
