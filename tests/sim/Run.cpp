// SPDX-License-Identifier: MIT
#include "tests/sim/Run.h"

#include "DevConn/DevConnMgr.h"
#include "VYM/vymParse.h"
#include "VYM/vymThread.h"
#include "tests/sim/Memory.h"
#include "tests/sim/PrinterDesk.h"
#include "tests/sim/Sockets.h"
#include "tests/sim/Threads.h"
#include "tests/support/TruthOracle.h"

namespace sim {

namespace {

constexpr Micros kPatience = 4 * 3600 * kSecond; // then the run is stopped
constexpr Micros kAfterwards = 7200 * kSecond; // for bytes that are still on their way

// The worker's caller: looks at its record again and again, and stops it when it has ended, at the
// scenario's moment, or after kPatience.
class Desk {
public:
    Desk(World& world, vymThread& worker, const Scenario& scenario)
        : m_world(world), m_worker(worker)
    {
        worker.SetPolling(scenario.pollingMs);
        look();
        m_world.in(scenario.stopAt.value_or(kPatience), [this] { stop(); });
    }
    [[nodiscard]] const tag_devinfo& record() const { return m_record; }

private:
    void look()
    {
        if (m_stopped)
            return;
        const auto before = m_record.m_updateState;
        m_worker.CheckState(m_record);
        if (m_record.m_updateState != before)
            m_world.trace("desk     sees state %u, result %d", m_record.m_updateState,
                          m_record.m_result);
        if (m_record.m_updateState == state_done || m_record.m_updateState == state_failed)
            stop();
        else
            m_world.in(500 * kMilli, [this] { look(); });
    }
    void stop()
    {
        if (m_stopped)
            return;
        m_stopped = true;
        m_world.trace("desk     stops the worker");
        m_worker.StopThread();
    }

    World& m_world;
    vymThread& m_worker;
    tag_devinfo m_record{};
    bool m_stopped = false;
};

std::vector<FirmwareClaim> claimsOf(const vymThread& worker, const Scenario& scenario)
{
    std::vector<FirmwareClaim> claims;
    for (unsigned i = 0; i < scenario.entries.size(); ++i) {
        const auto& entry = scenario.entries[i];
        FirmwareClaim claim{entry.name, imageOf(entry.image), 0, false, false};
        tag_entryoutcome outcome{};
        if (worker.GetEntryOutcome(i, outcome)) {
            claim.result = outcome.m_result;
            claim.sent = outcome.m_bytesWentOut;
            claim.confirmed = outcome.m_confirmed;
        }
        claims.push_back(std::move(claim));
    }
    return claims;
}

bool isDocumented(int code)
{
    return code == 1 || (code <= -1 && code >= -12);
}

void judge(const vymThread& worker, const Scenario& scenario, const PrinterLedger& ledger,
           RunReport& report)
{
    const auto claims = claimsOf(worker, scenario);
    PeerTraits peer;
    peer.honest = scenario.honest();
    peer.undisturbed = !report.disturbed;
    peer.fellSilent = report.disturbed
        && (scenario.link.fate == Fate::silence || scenario.link.fate == Fate::printerDies);
    peer.mustSucceed = scenario.sound();
    peer.interrupted = !scenario.inTime() || report.memoryFailed || scenario.stopAt.has_value();
    report.untruths = untruths(claims, ledger, peer);
    bool allWell = true;
    for (const auto& claim : claims) {
        report.sent += claim.sent ? 1 : 0;
        report.succeeded += claim.sent && claim.result == 1 ? 1 : 0;
        allWell = allWell && (claim.result == 1 || claim.result == -11);
        const auto* facts = ledger.firmware(claim.name);
        report.refused += facts != nullptr && facts->refusal ? 1 : 0;
        if (claim.result != 0 && !isDocumented(claim.result))
            report.untruths.push_back("an entry ended with the code "
                                      + std::to_string(claim.result));
    }
    report.allTaken = allWell;
    tag_devinfo info{};
    worker.CheckState(info);
    report.result = info.m_result;
    if (!isDocumented(info.m_result))
        report.untruths.push_back("the record ends with the code " + std::to_string(info.m_result));
    const bool ended = report.result == 1 || report.result == -11;
    // A run that fails before its first firmware, or between two, has no entry that failed.
    if (scenario.sound() && !(report.started && ended))
        report.untruths.push_back("a sound printer that answered in time: the run ended with "
                                  + std::to_string(report.result));
    if (scenario.sound() && allWell && ended && !ledger.left())
        report.untruths.emplace_back("the printer was never told to leave download mode");
    if (socketIsOpen() || UsbBus::openConnections() != 0)
        report.untruths.emplace_back("the connection was left open");
}

} // namespace

RunReport runSeed(std::uint64_t seed, bool traced)
{
    g_seed = seed;
    return run(Scenario(seed), traced);
}

RunReport run(const Scenario& scenario, bool traced)
{
    World world(traced);
    Link link(scenario.link, Random(scenario.lineSeed));
    ModelPrinter printer(scenario.printer);
    PrinterDesk printerDesk(link, printer, scenario.readsAtOnce);
    UsbBus bus(scenario.usb.value_or(UsbManners{}), printer);
    plugInLink(&link);
    refuseThreads(scenario.noThread);
    g_VymInfo.loadData(scenario.description.data(), scenario.description.size(), load_vyminfo);
    RunReport report;
    {
        vymThread worker;
        const Desk desk(world, worker, scenario);
        char address[] = "192.0.2.7";
        char port[] = "usb://Acme/P1?serial=S1";
        if (scenario.failingAllocation)
            failAllocation(*scenario.failingAllocation, scenario.memoryFailsForGood);
        report.started = worker.UpdateStart(nullptr, scenario.usb ? port : address, 48350);
        report.memoryFailed = scenario.failingAllocation && allocationFailed();
        allocateSafely();
        report.took = world.now();
        world.settle(kAfterwards);
        printerDesk.atTheEnd();
        bus.atTheEnd();
        report.sound = scenario.sound();
        report.disturbed = link.disturbed() || bus.disturbed();
        judge(worker, scenario, printer.ledger(), report);
        if (!report.started && threadIsLeft())
            report.untruths.emplace_back("the start failed, and its thread was left behind");
    }
    report.trace = world.traceText();
    plugInLink(nullptr);
    delete DevConnMgr::Instance();
    return report;
}

} // namespace sim
