// SPDX-License-Identifier: MIT
// A printer whose replies are the input, one instruction an exchange, plugged into the connection
// manager in place of the network:
//
//   0  these raw bytes                          length (2 bytes), bytes
//   1  a correctly framed reply to the request  length (2 bytes), body
//   2  a file in one block, with correct sums   length (2 bytes), text
//   3  no reply
//   4  the transport fails                      code (1 byte), negated
//
// Instructions are taken modulo 5. After the end of the input there are no more replies. It keeps a
// ledger of the packets that it received and of its answers to them.
//
// Owns:      the connection manager while it lives; one printer at a time.
// Threads:   one at a time drives the connection; its creator makes all other calls.
// Invariant: a conversation that exceeds its limit of exchanges aborts the process.
#pragma once
#include "DevConn/ConnResult.h"
#include "DevConn/DevConnMgr.h"
#include "fuzz/Fuzz.h"
#include "tests/support/Printer.h"
#include "tests/support/TruthOracle.h"

#include <cstring>

class FuzzedPrinter {
public:
    FuzzedPrinter(Input& input, std::size_t mostExchanges) : m_input(input), m_left(mostExchanges)
    {
        current() = this;
        DevConnMgr::Instance()->plugIn(DevConnMgr::Transport::network, &make);
    }
    ~FuzzedPrinter()
    {
        delete DevConnMgr::Instance();
        current() = nullptr;
    }
    FuzzedPrinter(const FuzzedPrinter&) = delete;
    FuzzedPrinter& operator=(const FuzzedPrinter&) = delete;

    [[nodiscard]] int openConnections() const { return m_open; }
    [[nodiscard]] const PrinterLedger& ledger() const { return m_ledger; }
    [[nodiscard]] const PeerTraits& traits() const { return m_traits; }

private:
    class Transport;
    static FuzzedPrinter*& current()
    {
        static FuzzedPrinter* printer = nullptr;
        return printer;
    }
    static std::unique_ptr<DevConnBase> make();
    long answer(std::string_view packet, std::string& reply);
    void record(std::string_view packet, std::string_view reply);

    Input& m_input;
    std::size_t m_left;
    int m_open = 0;
    PrinterLedger m_ledger;
    PeerTraits m_traits;
};

class FuzzedPrinter::Transport : public DevConnBase {
public:
    Transport() { ++current()->m_open; }
    ~Transport() override { --current()->m_open; }
    Transport(const Transport&) = delete;
    Transport& operator=(const Transport&) = delete;

    long Connect(const char* /*name*/, const char* /*port*/, unsigned short /*tcpPort*/) override
    {
        m_connected = true; // only an open connection accepts a time-out
        return conn::kSuccess;
    }
    long SendRecvData(unsigned char* send, unsigned long sendLength, unsigned char** reply,
                      unsigned long* replyLength) override
    {
        const HoldLock hold(m_lock);
        *reply = nullptr;
        *replyLength = 0;
        std::string bytes;
        const long code = current()->answer(asText(send, sendLength), bytes);
        bytes.resize(std::min(bytes.size(), m_recvPacketSize));
        if (code >= 0)
            current()->record(asText(send, sendLength), bytes);
        if (code < 0 || bytes.empty())
            return code;
        *reply = static_cast<unsigned char*>(AllocMem(bytes.size()));
        std::memcpy(*reply, bytes.data(), bytes.size());
        *replyLength = bytes.size();
        addMemList(*reply);
        return code;
    }
    long GetModelName(char** /*model*/, unsigned long* /*length*/) override
    {
        return conn::kNotSupported;
    }
    long SetTimeout(unsigned long milliseconds) override { return storeTimeout(milliseconds); }
    long Disconnect() override { return conn::kNetworkClosed; }
};

inline std::unique_ptr<DevConnBase> FuzzedPrinter::make()
{
    return std::make_unique<Transport>();
}

inline long FuzzedPrinter::answer(std::string_view packet, std::string& reply)
{
    constexpr std::uint16_t kMoreOfAFile = 0x5001; // expected when no packet is sent
    require(m_left-- > 0, "the conversation comes to an end");
    const auto what = m_input.empty() ? 3 : m_input.byte() % 5;
    if (what == 3)
        return conn::kSuccess;
    if (what == 4) {
        const long code = -static_cast<long>(m_input.byte());
        m_traits.undisturbed = m_traits.undisturbed && code == 0;
        return code;
    }
    reply = m_input.text(m_input.number());
    if (what == 1) {
        const auto code = packet.size() < 4
            ? kMoreOfAFile
            : static_cast<std::uint16_t>(static_cast<unsigned char>(packet[2]) << 8
                                         | static_cast<unsigned char>(packet[3]));
        reply = printer::reply(code, reply);
    } else if (what == 2) {
        reply = printer::file(reply);
    }
    return conn::kSuccess;
}

// An answer counts for the packet of its own exchange. A file packet's answer in any other exchange
// is late, doubled or early: such a printer can make any answer look like the last block's.
inline void FuzzedPrinter::record(std::string_view packet, std::string_view reply)
{
    m_ledger.took(packet);
    PacketAssembler line;
    line.add(reply);
    const auto whole = line.next();
    constexpr std::size_t kStatusAt = 10; // of two bytes
    if (!whole || whole->size() != reply.size() || reply.size() < kStatusAt + 2)
        return;
    const auto answered = commandOf(reply);
    const auto status =
        static_cast<std::uint16_t>(static_cast<unsigned char>(reply[kStatusAt]) << 8
                                   | static_cast<unsigned char>(reply[kStatusAt + 1]));
    const auto piece = FilePacketView::of(packet);
    if (answered == wire::kSendFile && piece)
        m_ledger.answeredFile(piece->name, piece->last(), status);
    else if (answered == wire::kSendFile)
        m_traits.honest = false;
    else if (answered == wire::kQuery && commandOf(packet) == wire::kQuery)
        m_ledger.answeredQuery(status);
}
