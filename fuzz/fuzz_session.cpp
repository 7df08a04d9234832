// SPDX-License-Identifier: MIT
// A whole session over a TCP stream: the real worker, procedure and transport on the simulated
// line, with a printer whose bytes, times and fragments are the input. For every input, the run
// ends with a documented code, closes its socket, and does not deny bytes that the printer
// received.
//
// An instruction: the time since the last one (a byte, in units of 4 ms) and an action (a byte): 0
// to 199 sends that many following bytes, 200 to 229 answers the last request with a body of the
// next bytes, 230 to 249 sends the printer's description, 250 to 254 does nothing, 255 ends the
// connection.
#include "DevConn/DevConnMgr.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymParse.h"
#include "VYM/vymThread.h"
#include "fuzz/Fuzz.h"
#include "tests/sim/Link.h"
#include "tests/sim/Sockets.h"
#include "tests/sim/Threads.h"
#include "tests/support/Printer.h"
#include "tests/support/PrinterLedger.h"
#include "tests/support/TruthOracle.h"

namespace {

using sim::kMilli;
using sim::kSecond;

constexpr std::string_view kDescription =
    "TGMNAME \"Vymprint 200\"\r\nPORT NET\r\nENTERTIME 1\r\nEXITTIME 1\r\nUPDATETIME 2\r\n"
    "ALLOWVERSIONDOWN YES\r\nVERSION MAIN=VP010210 main.bin MAIN.BIN\r\n";
constexpr std::string_view kTargetInfo =
    "TGMNAME \"Vymprint 200\"\r\nVERSION MAIN=VP010100\r\nMAXPACKET 160\r\n";

class FuzzedPeer {
public:
    FuzzedPeer(Input& input, sim::Link& link) : m_input(input), m_link(link)
    {
        link.onAccept = [this] { next(); };
        link.onChange = [this] { take(); };
    }
    [[nodiscard]] const PrinterLedger& ledger() const { return m_ledger; }
    void end() { m_ledger.leftOver(m_line.rest()); }

private:
    void take()
    {
        while (m_link.printerUnread() != 0)
            m_line.add(m_link.printerRead(4096));
        while (const auto packet = m_line.next()) {
            m_ledger.took(*packet);
            m_command = static_cast<std::uint16_t>(commandOf(*packet));
        }
        if (m_link.printerSeesEnd())
            m_link.printerClose();
    }
    void next()
    {
        if (m_input.empty())
            return;
        sim::World::current().in(m_input.byte() * 4 * kMilli, [this] {
            act(m_input.byte());
            next();
        });
    }
    void act(unsigned what)
    {
        if (what < 200)
            m_link.printerSend(std::string(m_input.text(what)));
        else if (what < 230)
            m_link.printerSend(printer::reply(m_command, std::string(m_input.text(what % 30))));
        else if (what < 250)
            m_link.printerSend(printer::file(std::string(kTargetInfo)));
        else if (what == 255)
            m_link.printerClose();
    }

    Input& m_input;
    sim::Link& m_link;
    PrinterLedger m_ledger;
    PacketAssembler m_line;
    std::uint16_t m_command = 0;
};

// Looks at the run until it has ended, then stops it; stops it after an hour in any case.
void watch(vymThread& worker, sim::Micros until)
{
    auto& world = sim::World::current();
    tag_devinfo info{};
    worker.CheckState(info);
    if (info.m_updateState == state_done || info.m_updateState == state_failed
        || world.now() > until)
        worker.StopThread();
    else
        world.in(500 * kMilli, [&worker, until] { watch(worker, until); });
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    Package package;
    package.file("main.bin", imageBytes(301)).file("other.bin", "x").open();
    require(vymBindInfo::Instance()->IsBindVymFile(), "the package is open");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    sim::LinkManners manners;
    manners.window = input.byte() % 2 != 0 ? 100 : 65536;
    manners.delayOut = manners.delayBack = 50;
    sim::World world(false);
    sim::Link link(manners, sim::Random(1));
    FuzzedPeer peer(input, link);
    sim::plugInLink(&link);
    sim::refuseThreads(false);
    g_VymInfo.loadData(kDescription.data(), kDescription.size(), load_vyminfo);
    {
        vymThread worker;
        watch(worker, 3600 * kSecond);
        char address[] = "192.0.2.7";
        require(worker.UpdateStart(nullptr, address, 48350), "the worker starts");
        world.settle(3600 * kSecond);
        peer.end();
        tag_entryoutcome outcome{};
        const bool handled = worker.GetEntryOutcome(0, outcome);
        const bool sent = handled && outcome.m_bytesWentOut;
        require(sent || peer.ledger().firmwareBytes() == 0, "what the printer got is not denied");
        require(!handled || (outcome.m_result <= 1 && outcome.m_result >= -12), "a known code");
        require(!outcome.m_confirmed || sent, "confirmed where bytes went out");
        // Its answers are any bytes at any time: no count of them shows whose they are.
        PeerTraits traits;
        traits.honest = false;
        const FirmwareClaim claim{"MAIN.BIN", imageBytes(301), handled ? outcome.m_result : 0, sent,
                                  handled && outcome.m_confirmed};
        for (const auto& sentence : untruths({claim}, peer.ledger(), traits))
            require(false, sentence.c_str());
        require(!sim::socketIsOpen(), "the connection is closed");
    }
    sim::plugInLink(nullptr);
    delete DevConnMgr::Instance();
    return 0;
}
