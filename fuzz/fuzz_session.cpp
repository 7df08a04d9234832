// SPDX-License-Identifier: MIT
// A whole session over a TCP stream: the real worker, procedure and transport on the simulated
// line, with a printer whose bytes, times and fragments are the input. For every input, the run
// ends with a documented code, closes its socket, and does not deny bytes that the printer
// received.
//
// The second bit of the first byte chooses an honest printer instead: the rest of the input is its
// pace, its manner of answering and the line's. Where its answers come well within the package's
// times, the run has to succeed: with every byte, and on the last block's own answer.
//
// For the other printer, an instruction: the time since the last one (a byte, in units of 4 ms) and
// an action (a byte): 0 to 199 sends that many following bytes, 200 to 229 answers the last request
// with a body of the next bytes, 230 to 249 sends the printer's description, 250 to 254 does
// nothing, 255 ends the connection.
#include "DevConn/DevConnMgr.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymParse.h"
#include "VYM/vymThread.h"
#include "fuzz/Fuzz.h"
#include "tests/sim/Run.h"
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

// Of the simulation's images the first ones that are not empty: at most 4036 bytes.
constexpr std::size_t kSmallImages = 4;

template <class T, std::size_t Count> T of(const T (&choices)[Count], Input& input)
{
    return choices[input.byte() % Count];
}

// Two firmware of one byte to some pieces.
void choosePackage(sim::Scenario& run, Input& input)
{
    constexpr std::size_t kPackets[] = {160, 1084, 4096, 16384};
    run.maxPacket = of(kPackets, input);
    run.description = "TGMNAME \"Vymprint 200\"\r\nPORT NET\r\nENTERTIME 5\r\nEXITTIME 1\r\n"
                      "UPDATETIME 30\r\nALLOWVERSIONDOWN NO\r\n";
    run.printer.targetInfo = "TGMNAME \"Vymprint 200\"\r\n";
    for (const std::string name : {"MAIN", "ENGINE"}) {
        const auto image = 1 + input.byte() % kSmallImages;
        run.entries.push_back({name + ".BIN", image});
        run.description +=
            "VERSION " + name + "=VP010210 " + sim::imageName(image) + ' ' + name + ".BIN\r\n";
        run.printer.targetInfo += "VERSION " + name + "=VP010100\r\n";
    }
    run.printer.targetInfo += "MAXPACKET " + std::to_string(run.maxPacket) + "\r\n";
    if (input.byte() % 2 != 0)
        run.printer.targetInfo += "SUPPORT_COMMAND 5103\r\n";
}

sim::Scenario honestRun(Input& input)
{
    constexpr unsigned kAnswerEvery[] = {1, 1, 0, 2, 10};
    constexpr std::size_t kBuffers[] = {65536, 16384, 4608, 300};
    sim::Scenario run;
    choosePackage(run, input);
    auto& printer = run.printer;
    printer.answerEvery = of(kAnswerEvery, input);
    printer.pieceMs = input.byte() * 8U;
    printer.lastMs = input.byte() * 8U;
    printer.enterMs = input.byte() * 8U;
    printer.infoMs = input.byte() * 2U;
    printer.queryMs = input.byte() * 2U;
    printer.exitMs = input.byte() * 8U;
    printer.writingAnswers = input.byte() % 4;
    printer.answersExit = input.byte() % 4 != 0;
    run.readsAtOnce = of(kBuffers, input);
    run.link.window = of(kBuffers, input);
    run.link.sendBuffer = of(kBuffers, input);
    run.link.delayOut = input.byte() * sim::kMilli / 4;
    run.link.delayBack = input.byte() * sim::kMilli / 4;
    run.link.perKilobyte = input.byte() * sim::kMilli / 64;
    run.link.shortPercent = input.byte() % 40;
    run.lineSeed = input.number();
    return run;
}

void runHonestly(Input& input)
{
    const auto scenario = honestRun(input);
    const auto report = sim::run(scenario, false);
    for (const auto& sentence : report.untruths)
        require(false, sentence.c_str());
    const auto all = scenario.entries.size();
    require(!report.sound || (report.sent == all && report.succeeded == all),
            "every firmware of an honest printer is sent, and succeeds");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    Package package;
    package.file("main.bin", imageBytes(301));
    for (std::size_t i = 1; i <= kSmallImages; ++i)
        package.file(sim::imageName(i), sim::imageOf(i));
    package.open();
    require(vymBindInfo::Instance()->IsBindVymFile(), "the package is open");
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const auto kind = input.byte();
    if (kind / 2 % 2 != 0) {
        runHonestly(input);
        return 0;
    }
    sim::LinkManners manners;
    manners.window = kind % 2 != 0 ? 100 : 65536;
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
