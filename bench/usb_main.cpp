// SPDX-License-Identifier: MIT
// Bulk throughput: sends firmware packets to a printer on a USB bus, through the connection manager
// and through the smallest loop over libusb, with the same packets and the same printer.
//
//   bench_usb PAIRS    PAIRS interleaved pairs: prints the median ratio of their speeds, then the
//                      bare loop's speed in MB/s
//
// A virtual printer of the model BENCH, the only one on the bus, has MAXPACKET 65536 and
// acknowledges tenths.
#include "DevConn/DevConnMgr.h"
#include "Platform/SystemUsbHost.h"
#include "VYM/vymPackets.h"
#include "VYM/vymParse.h"
#include "bench/Measure.h"
#include "bench/NoPauses.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <libusb-1.0/libusb.h>
#include <string_view>
#include <vector>

namespace {

using Packet = std::vector<unsigned char>;

constexpr std::string_view kDescription = "TGMNAME BENCH\r\n";
constexpr char kPort[] = "usb://Virtual/BENCH?serial=VP0001";
constexpr std::uint16_t kVendor = 0x1209;
constexpr std::uint16_t kProduct = 0x0001;
constexpr unsigned char kBulkOut = 0x02; // the virtual controller's numbering
constexpr unsigned char kBulkIn = 0x81;
constexpr std::uint32_t kPieces = 64;
constexpr std::uint32_t kPiece = 65536 - sizeof(TAG_CMDSENDFILE);
constexpr unsigned long kTimeoutMs = 30000;
constexpr unsigned kDrainMs = 20;
constexpr int kReplyRoom = 512;

// One packet, and whether the printer acknowledges it.
struct Step {
    Packet bytes;
    bool answered;
};

template <class Record> Packet packetOf(const Record& record)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(&record);
    return {bytes, bytes + sizeof record};
}

std::vector<Step> wholeFirmware()
{
    std::vector<Step> steps;
    const std::uint32_t size = kPieces * kPiece;
    Packet data(kPiece);
    std::uint32_t lastPercent = 0;
    std::uint16_t sum = 0;
    for (std::uint32_t start = 0; start < size; start += kPiece) {
        for (std::uint32_t i = 0; i < kPiece; ++i)
            data[i] = static_cast<unsigned char>((start + i) * 31U);
        const auto head =
            packets::sendFile("MAINFW", {packets::kData, start, size, data.data(), kPiece});
        sum = static_cast<std::uint16_t>(sum + readBigEndian16(head.m_checkSum.bytes));
        auto packet = packetOf(head);
        packet.insert(packet.end(), data.begin(), data.end());
        const auto percent = start * 100U / size; // 32 bits, as the printer counts
        steps.push_back({std::move(packet), percent % 10 == 0 && percent != lastPercent});
        lastPercent = percent;
    }
    const auto last =
        packets::sendFile("MAINFW", {packets::kLastUnpolled, size, size, nullptr, sum});
    steps.push_back({packetOf(last), true});
    return steps;
}

// Talks to the printer through libusb alone; holds the interface while it lives.
class BarePrinter {
public:
    BarePrinter()
    {
        require(libusb_init(&m_context) == 0, "there is no libusb");
        m_handle = libusb_open_device_with_vid_pid(m_context, kVendor, kProduct);
        require(m_handle != nullptr, "there is no printer");
        libusb_set_auto_detach_kernel_driver(m_handle, 1);
        require(libusb_claim_interface(m_handle, 0) == 0, "the printer is taken");
    }
    ~BarePrinter()
    {
        libusb_release_interface(m_handle, 0);
        libusb_close(m_handle);
        libusb_exit(m_context);
    }
    BarePrinter(const BarePrinter&) = delete;
    BarePrinter& operator=(const BarePrinter&) = delete;

    // Resets the printer, then reads and drops the answers that it still sends.
    void softReset()
    {
        require(libusb_control_transfer(m_handle, 0x21, 2, 0, 0, nullptr, 0, kTimeoutMs) == 0,
                "the printer cannot be reset");
        unsigned char old[kReplyRoom];
        int got = 0;
        while (libusb_bulk_transfer(m_handle, kBulkIn, old, kReplyRoom, &got, kDrainMs) == 0) { }
    }
    void send(const Packet& packet)
    {
        int sent = 0;
        auto* bytes = const_cast<unsigned char*>(packet.data());
        require(libusb_bulk_transfer(m_handle, kBulkOut, bytes, static_cast<int>(packet.size()),
                                     &sent, kTimeoutMs)
                        == 0
                    && sent == static_cast<int>(packet.size()),
                "the bare loop cannot send");
    }
    void readReply()
    {
        unsigned char reply[kReplyRoom];
        int got = 0;
        require(libusb_bulk_transfer(m_handle, kBulkIn, reply, kReplyRoom, &got, kTimeoutMs) == 0
                    && got >= 12 && reply[11] >= 0x80,
                "the bare loop got no good answer");
    }

private:
    libusb_context* m_context = nullptr;
    libusb_device_handle* m_handle = nullptr;
};

double bareSeconds(const std::vector<Step>& steps)
{
    BarePrinter printer;
    printer.softReset();
    printer.send(packetOf(packets::enterDownload(false)));
    printer.readReply();
    return secondsOf([&] {
        for (const auto& step : steps) {
            printer.send(step.bytes);
            if (step.answered)
                printer.readReply();
        }
    });
}

// An answer to a piece may arrive after the wait for it; the next packet then receives it.
void exchange(DevConnMgr& manager, void* handle, Packet& packet, bool answered)
{
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    require(manager.SendRecvData(handle, packet.data(), packet.size(), &reply, &length) == 0,
            "the connection has failed");
    require(reply != nullptr || !answered, "an answer is missing");
    if (reply == nullptr)
        return;
    require(length >= 12 && reply[11] >= 0x80, "the connection got no good answer");
    manager.DisposeData(handle, reply);
}

double connectionSeconds(std::vector<Step>& steps)
{
    BarePrinter().softReset();
    auto* manager = DevConnMgr::Instance();
    require(manager != nullptr, "there is no connection manager");
    void* handle = nullptr;
    require(manager->Connect(nullptr, kPort, 0, 0, &handle) == 0, "there is no connection");
    manager->SetTimeout(handle, kTimeoutMs);
    auto enter = packetOf(packets::enterDownload(false));
    exchange(*manager, handle, enter, true);
    const auto taken = secondsOf([&] {
        for (auto& step : steps)
            exchange(*manager, handle, step.bytes, &step == &steps.back());
    });
    manager->Disconnect(handle);
    return taken;
}

} // namespace

int main(int argc, char** argv)
{
    const long pairs = argc == 2 ? std::strtol(argv[1], nullptr, 10) : 0;
    if (pairs < 1) {
        std::fputs("usage: bench_usb PAIRS\n", stderr);
        return 64;
    }
    UsbHost::plugIn(systemUsbHost());
    g_VymInfo.loadData(kDescription.data(), kDescription.size(), load_vyminfo);
    const NoPauses noPauses;
    auto steps = wholeFirmware();
    std::vector<double> ratios;
    double bare = 0;
    for (long i = 0; i <= pairs; ++i) {
        const bool bareFirst = i % 2 == 0;
        const auto first = bareFirst ? bareSeconds(steps) : connectionSeconds(steps);
        const auto second = bareFirst ? connectionSeconds(steps) : bareSeconds(steps);
        bare = bareFirst ? first : second;
        if (i > 0) // both have run once before the first pair counts
            ratios.push_back(bareFirst ? first / second : second / first);
    }
    const auto middle = ratios.begin() + pairs / 2;
    std::nth_element(ratios.begin(), middle, ratios.end());
    std::printf("%.4f %.1f\n", *middle, kPieces * kPiece / bare / 1e6);
    return 0;
}
