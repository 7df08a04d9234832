// SPDX-License-Identifier: MIT
// Each fault of a printer during an update, through the real programs: checks the exit code, a
// complete result, and an end within bounded time.
#include "tests/system/Desk.h"
#include "tests/system/Fault.h"

namespace {

using namespace desk;

class PrinterFault : public ::testing::TestWithParam<Fault> { };

TEST_P(PrinterFault, EndsTheUpdateWithItsCodeInBoundedTime)
{
    const auto& fault = GetParam();
    const PackageFolder package({{"MAIN", "AB010200", 50000}});
    std::vector<std::string> options{"--firmware", "MAIN=AB010100", "--fault", fault.spec};
    // A piece's answer that comes late would stand for the last block's, and the status query would
    // then confirm the update in spite of the fault: such a printer answers no pieces.
    if (std::string(fault.spec).ends_with("@last-block"))
        options.insert(options.end(), {"--replies", "last"});
    const VirtualPrinter printer(options);
    CliRun run(updateOf(printer, package));
    const int code = run.exitCode(kSoon);
    EXPECT_TRUE(fault.exitCodes.count(code) != 0) << code << '\n'
                                                  << run.process().out() << run.process().errors();
    const auto result = run.result();
    EXPECT_EQ(result["exit_code"], code);
    EXPECT_FALSE(result["message"].get<std::string>().empty());
    EXPECT_EQ(result["firmware_bytes_sent"], fault.bytesWentOut);
    EXPECT_EQ(result["next"] == "none", code == 0);
}

// A row has two codes where the same cut may appear as an end or as an error of the link.
const Fault kFaults[] = {
    {"refuse-busy", {13}, false},
    {"refuse-fax", {14}, false},
    {"wrong-model", {17}, false},
    {"close@connect", {15, 16}, false},
    {"reset@connect", {15, 16}, false},
    {"stall@connect", {15}, false},
    {"silent@connect", {15}, false},
    {"close@enter", {15, 16}, false},
    {"reset@enter", {16}, false},
    {"stall@enter", {15}, false},
    {"silent@enter", {15}, false},
    {"garbage@enter", {15}, false},
    {"wrong-code@enter", {15}, false},
    {"short-reply@enter", {15}, false},
    {"split-reply@enter", {16}, false},
    {"split-body@enter", {0}, true},
    {"oversized@enter", {15}, false},
    {"length-lie@enter", {15}, false},
    {"drip@enter", {16}, false},
    {"status-unknown@enter", {15}, false},
    {"close@get-file", {15, 16}, false},
    {"reset@get-file", {16}, false},
    {"stall@get-file", {15}, false},
    {"silent@get-file", {15}, false},
    {"garbage@get-file", {15}, false},
    {"wrong-code@get-file", {15}, false},
    {"oversized@get-file", {15}, false},
    {"length-lie@get-file", {15}, false},
    {"bad-checksum", {12}, false},
    {"endless", {15}, false},
    {"endless-empty", {15}, false},
    {"huge-total", {19}, false},
    {"offset-wrap", {12, 15}, false},
    {"no-maxpacket", {19}, false},
    {"no-model", {19}, false},
    {"bad-maxpacket=0", {15}, false},
    {"bad-maxpacket=-5", {15}, false},
    {"bad-maxpacket=7", {15}, false},
    {"bad-maxpacket=60", {15}, false},
    {"bad-maxpacket=nonsense", {15}, false},
    {"status-0803@piece", {11}, true},
    {"status-0804@piece", {12}, true},
    {"status-unknown@piece", {15}, true},
    {"close@piece:0", {15, 16}, true},
    {"close@piece:1", {15, 16}, true},
    {"close@piece:20000", {15, 16}, true},
    {"reset@piece:20000", {16}, true},
    {"stall@piece:20000", {15, 16}, true},
    {"silent@piece:20000", {15}, true},
    {"garbage@piece", {15, 16, 0}, true},
    {"status-0803@last-block", {11}, true},
    {"status-0804@last-block", {12}, true},
    {"status-unknown@last-block", {15}, true},
    {"close@last-block", {15, 16}, true},
    {"reset@last-block", {16}, true},
    {"stall@last-block", {15}, true},
    {"silent@last-block", {15}, true},
    {"garbage@last-block", {15}, true},
    {"wrong-code@last-block", {15}, true},
    {"status-0803@status", {11}, true},
    {"status-0804@status", {15}, true},
    {"status-unknown@status", {15}, true},
    {"close@status", {15, 16}, true},
    {"reset@status", {16}, true},
    {"stall@status", {15}, true},
    {"silent@status", {15}, true},
    {"garbage@status", {15}, true},
    {"oversized@status", {15}, true},
    {"status-over-100", {0}, true},
    {"close@exit", {0}, true},
    {"reset@exit", {0}, true},
    {"stall@exit", {0}, true},
    {"silent@exit", {0}, true},
    {"garbage@exit", {0}, true},
};

INSTANTIATE_TEST_SUITE_P(AtEveryStage, PrinterFault, ::testing::ValuesIn(kFaults), nameOf);

TEST(PrinterThatIsNotThere, EndsAsALostConnection)
{
    const PackageFolder package({{"MAIN", "AB010200", 500}});
    CliRun run(
        {"update", "--address", ownAddress(), "--package", package.path(), "--yes", "--json"});
    EXPECT_EQ(run.exitCode(), 16);
    EXPECT_EQ(run.result()["next"], "retry");
}

TEST(PrinterThatStopsReading, DelaysALargePacketNoLongerThanItsTimeOut)
{
    const PackageFolder package({{"MAIN", "AB010200", 4500000}});
    const VirtualPrinter printer(
        {"--firmware", "MAIN=AB010100", "--max-packet", "4000000", "--fault", "stall@piece:100"});
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(kSoon), 16) << run.process().out();
}

TEST(PrinterThatOffersHugePackets, GetsPiecesThatFitIntoMemory)
{
    const PackageFolder package({{"MAIN", "AB010200", 100000}});
    const VirtualPrinter printer({"--firmware", "MAIN=AB010100", "--max-packet", "67108864",
                                  "--fault", "bad-maxpacket=2147483647"});
    CliRun run(updateOf(printer, package));
    EXPECT_EQ(run.exitCode(kSoon), 0) << run.process().out();
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
}

TEST(PrinterThatSendsControlCharacters, ReachesNeitherTerminalNorJson)
{
    const TempFolder folder;
    folder.write("info",
                 "TGMNAME MODEL\x1b[31m\x07\r\nVERSION MAIN=\x1b]0;x\x07\r\nMAXPACKET 4096\r\n");
    const PackageFolder package({{"MAIN", "AB010200", 500}});
    const VirtualPrinter printer({"--target-info", folder / "info"});
    for (const char* form : {"--json", "--verbose"}) {
        CliRun run({"check", "--address", printer.address(), "--package", package.path(), form});
        EXPECT_EQ(run.exitCode(), 17);
        const auto all = run.process().out() + run.process().errors();
        for (const char c : all)
            EXPECT_TRUE(c == '\n' || (c >= ' ' && c != 0x7f) || (c & 0x80) != 0) << int{c};
    }
}

} // namespace
