// SPDX-License-Identifier: MIT
// A USB transport over a printer whose descriptors, replies and transfers are the input. For every
// input, each call ends in time with a documented result, and nothing stays open.
//
// The input: the number of pipes (1 byte), one byte each; the missing parts (1 byte, one bit each);
// the number of incoming transfers (1 byte), for each its event (1 byte), the number of waits
// before it (1 byte), the size that it claims (2 bytes, if bit 1 of the event is set) and its bytes
// (length in 1 byte); then, until the input ends, a time-out in tens of milliseconds minus one
// (1 byte), the result of a write (1 byte), and packets (length in 1 byte).
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnUSB.h"
#include "VYM/vymMac.h"
#include "VYM/vymParse.h"
#include "fuzz/Fuzz.h"
#include "tests/support/ScriptedUsbHost.h"

namespace {

constexpr unsigned kMostPipes = 30;
constexpr unsigned long kLeastWriteMs = 500;
constexpr unsigned long kSlackMs = 100; // the pauses between waits, and the last wait
constexpr unsigned long kPacketSize = 300;

void describe(ScriptedPrinter& printer, Input& input)
{
    const auto pipes = input.byte() % (kMostPipes + 1);
    printer.pipes.clear();
    for (unsigned i = 0; i < pipes; ++i) {
        const auto pipe = input.byte();
        printer.pipes.emplace_back(
            UsbPipe{(pipe & 0x80) != 0, static_cast<UsbPipe::Type>(pipe % 4)});
        if (pipe % 16 == 15)
            printer.pipes.back().reset();
    }
    const auto missing = input.byte();
    printer.countsPipes = (missing & 1) == 0;
    printer.configuration = (missing & 2) != 0 ? std::nullopt : printer.configuration;
    printer.deviceId = (missing & 4) != 0 ? std::nullopt : printer.deviceId;
    printer.readsStart = (missing & 8) == 0;
    printer.readsEndFirst = (missing & 16) != 0;
    printer.busyFor = (missing & 32) != 0 ? 3 : 0;
    for (auto transfers = input.byte(); transfers > 0; --transfers) {
        const auto what = input.byte();
        ScriptedPrinter::Read read{"", input.byte() % 32, UsbStatus::ok, {}};
        if (what % 16 == 15)
            read.status = UsbStatus::failed;
        if ((what & 2) != 0)
            read.claimed = input.number();
        read.bytes = input.text(input.byte());
        printer.reads.push_back(std::move(read));
    }
}

void exchangeOnce(DevConnUSB& usb, ScriptedPrinter& printer, Input& input)
{
    const auto timeoutMs = (input.byte() + 1UL) * 10; // 0 would be refused
    usb.SetTimeout(timeoutMs);
    printer.writes.push_back(static_cast<ScriptedPrinter::Write>(input.byte() % 4));
    const auto packet = std::string(input.text(input.byte()));
    std::vector<unsigned char> bytes(packet.begin(), packet.end());
    unsigned char* reply = nullptr;
    unsigned long length = 0;
    const auto start = tickMilliseconds();
    const auto waits = printer.waits.size();
    const auto code =
        usb.SendRecvData(bytes.empty() ? nullptr : bytes.data(), bytes.size(), &reply, &length);
    const auto longest = 2 * std::max(timeoutMs, kLeastWriteMs) + timeoutMs + kSlackMs;
    require(tickMilliseconds() - start <= longest, "an exchange ends in time");
    require(printer.waits.size() - waits <= 8 * longest, "no spinning");
    require(code == conn::kSuccess || code == conn::kSendFailed || code == conn::kReceiveFailed,
            "a result of the exchange");
    require((reply == nullptr) == (length == 0), "a reply has a length");
    require(reply == nullptr || (length >= 8 && length <= kPacketSize), "a reply fits");
    require(reply == nullptr || usb.DisposeData(reply) == conn::kSuccess, "a reply is ours");
    require(usb.GetCacheDataSize() <= ReceiveCache::kCapacity, "the cache holds its bytes");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::string_view kDescription = "DEVICEIDMODELNAME P1\r\n";
    g_VymInfo.loadData(kDescription.data(), kDescription.size(), load_vyminfo);
    Input input(data, size);
    ScriptedUsbHost host;
    auto& printer = host.printer();
    describe(printer, input);
    {
        DevConnUSB usb(host);
        const auto opened = usb.Connect(nullptr, "usb://Acme/P1?serial=S1", 0);
        require(opened == conn::kSuccess || opened == conn::kCannotOpen, "a result of opening");
        require((opened == conn::kSuccess) == (printer.open == 1), "connected means open");
        usb.SetRecvPacketSize(kPacketSize);
        while (opened == conn::kSuccess && !input.empty())
            exchangeOnce(usb, printer, input);
    }
    require(printer.open == 0, "nothing stays open");
    return 0;
}
