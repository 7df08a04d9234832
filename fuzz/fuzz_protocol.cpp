// SPDX-License-Identifier: MIT
// A hostile printer against the update procedure. The first two input bytes choose the caller and
// the open package, the rest are the printer's replies (see FuzzedPrinter.h). Whatever it replies,
// the procedure ends, with a documented code, and its claims about each firmware are true.
#include "VYM/CheckRun.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymProtocol.h"
#include "VYM/vymThread.h"
#include "fuzz/FuzzedPrinter.h"
#include "tests/support/ScriptedTime.h"

namespace {

constexpr std::size_t kMainSize = 301;
constexpr std::size_t kEngineSize = 61;
constexpr unsigned kMostPolls = 8; // for a printer that reports "writing" forever

// Pauses and waits take no time.
class NoTime : public ScriptedTime {
    [[nodiscard]] unsigned long waitLimit(unsigned long /*milliseconds*/) const override
    {
        return 0;
    }
};

constexpr std::string_view kCommon = "TGMNAME \"Vymprint 200\"\r\nPORT USB NET\r\nENTERTIME 5\r\n"
                                     "EXITTIME 5\r\nUPDATETIME 30\r\n";
constexpr std::string_view kMain =
    "VERSION MAIN=VP010210 main.bin MAIN.BIN COMPATIBLE=VP010100 HEADER=1\r\n";
constexpr std::string_view kEngine = "VERSION ENGINE=01.10 engine.bin ENGINE.BIN\r\n";

// The package that the second input byte chooses.
std::string descriptionOf(unsigned choice)
{
    const std::string common(kCommon);
    switch (choice % 5) {
    case 0:
        return common + "ALLOWVERSIONDOWN BOTH\r\n" + std::string(kMain) + std::string(kEngine);
    case 1: // the last piece carries data, the status query is short
        return common + "ALLOWVERSIONDOWN NO\r\nSPECIALCMDPATTERN YES\r\n" + std::string(kMain);
    case 2: // no comparison at all
        return common + "ALLOWVERSIONDOWN YES\r\n" + std::string(kEngine);
    case 3: // images that are missing, cut short, empty
        return common
            + "ALLOWVERSIONDOWN YES\r\nVERSION MAIN=1 cut.bin CUT\r\n"
              "VERSION MAIN=1 none.bin NONE\r\nVERSION MAIN=1 empty.bin EMPTY\r\n";
    default: // keys without values
        return "TGMNAME \"Vymprint 200\"\r\nENTERTIME 1\r\nUPDATETIME\r\nEXITTIME\r\n"
            + std::string(kMain);
    }
}

// The images of all descriptions, in the only container that the process opens.
void openPackage()
{
    Package package;
    package.file("main.bin", imageBytes(kMainSize)).file("engine.bin", imageBytes(kEngineSize));
    package.file("empty.bin", "").entry("cut.bin", 0, 0xFFFFFFFF).open();
    require(vymBindInfo::Instance()->IsBindVymFile(), "the package is open");
}

void requireDocumented(int code)
{
    require(code == result::kSuccess || (code <= result::kDeviceError && code >= result::kTooOld),
            "a documented result");
}

// The claims about one row of the description.
FirmwareClaim claimOf(unsigned row, int code, bool sent, bool confirmed)
{
    std::string field[6];
    g_VymInfo.getVersion(row, field[0], field[1], field[2], field[3], field[4], field[5]);
    const auto image = field[2] == "main.bin" ? imageBytes(kMainSize)
        : field[2] == "engine.bin"            ? imageBytes(kEngineSize)
                                              : std::string();
    return {field[3], image, code, sent, confirmed};
}

void requireTrue(const std::vector<FirmwareClaim>& claims, const FuzzedPrinter& printer)
{
    for (const auto& sentence : untruths(claims, printer.ledger(), printer.traits()))
        require(false, sentence.c_str());
}

// Every step of the procedure, also those after a failed one.
void runProcedure(char* address, const FuzzedPrinter& printer)
{
    std::vector<FirmwareClaim> claims;
    vymProtocol protocol;
    tag_devinfo info{};
    requireDocumented(protocol.EnterDownLoadMode(nullptr, address, 48350, false));
    requireDocumented(protocol.GetFileData("TargetInfo.txt"));
    const auto total = g_VymInfo.countVersionRows();
    for (unsigned n = 0; n < total; ++n) {
        std::string field[6];
        g_VymInfo.getVersion(n, field[0], field[1], field[2], field[3], field[4], field[5]);
        const int code =
            protocol.UpdateFirmware("Vymprint 200", field[0].c_str(), field[1].c_str(),
                                    field[2].c_str(), field[3].c_str(), field[4].c_str(), info);
        requireDocumented(code);
        claims.push_back(claimOf(n, code, protocol.FirmwareBytesWentOut(), false));
        require(!protocol.FirmwareBytesWentOut()
                    || protocol.DecisionReason() == VersionReason::applies,
                "firmware is sent where the version rule applies");
        for (unsigned polls = 0; polls < kMostPolls; ++polls) {
            const int state = protocol.CheckState(info);
            requireDocumented(state);
            if (state != result::kSuccess || info.m_updateState != state_writing)
                break;
        }
    }
    requireDocumented(protocol.ExitDownLoadMode());
    requireTrue(claims, printer);
}

void runCheck(char* address, const FuzzedPrinter& printer)
{
    const std::atomic<bool> stop{false};
    const auto report = checkPrinter(nullptr, address, 48350, stop);
    requireDocumented(report.result);
    for (const auto& entry : report.entries)
        requireDocumented(entry.decision.code);
    require(printer.ledger().firmwareBytes() == 0, "a check sends no firmware");
}

void runWorker(char* address, const FuzzedPrinter& printer)
{
    vymThread worker;
    tag_devinfo info{};
    require(worker.UpdateStart(nullptr, address, 48350), "the worker starts");
    do {
        yieldProcessor();
        worker.CheckState(info);
    } while (info.m_updateState != state_done && info.m_updateState != state_failed);
    worker.StopThread();
    requireDocumented(info.m_result);
    require((info.m_updateState == state_failed) <= (info.m_result != result::kSuccess),
            "a failed run says why");
    std::vector<FirmwareClaim> claims;
    tag_entryoutcome outcome{};
    for (unsigned i = 0; worker.GetEntryOutcome(i, outcome); ++i) {
        requireDocumented(outcome.m_result);
        require(outcome.m_bytesSent <= outcome.m_bytesTotal, "no more is sent than there is");
        require(!outcome.m_confirmed || outcome.m_bytesWentOut, "confirmed where bytes went out");
        claims.push_back(claimOf(i, outcome.m_result, outcome.m_bytesWentOut, outcome.m_confirmed));
    }
    requireTrue(claims, printer);
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* /*argc*/, char*** /*argv*/)
{
    openPackage();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Every exchange consumes an instruction, sends a piece, or is one of a few that end a step.
    constexpr std::size_t kEndings = 64;
    const NoTime time;
    Input input(data, size);
    const auto driver = input.byte();
    const auto text = descriptionOf(input.byte());
    g_VymInfo.loadData(text.data(), text.size(), load_vyminfo);
    FuzzedPrinter printer(input, size + kMainSize + kEngineSize + kEndings);
    char address[] = "127.0.0.1";
    constexpr void (*kDrivers[])(char*, const FuzzedPrinter&) = {&runProcedure, &runCheck,
                                                                 &runWorker};
    kDrivers[driver % std::size(kDrivers)](address, printer);
    require(printer.openConnections() == 0, "no connection is left open");
    return 0;
}
