// SPDX-License-Identifier: MIT
#include "Tools/vympack/RehearseCommand.h"
#include "tests/Tools/vympack/program.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>

using namespace vympack_test;
using testing::HasSubstr;

namespace {

const std::string kRehearse = std::string("rehearse --quick ") + VYMPACK_DEMO;

} // namespace

TEST(VympackRehearse, AWholeUpdateArrivesByteForByte)
{
    const auto outcome = run(kRehearse);
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    EXPECT_THAT(outcome.output, HasSubstr("receives MAIN.BIN, 307241 bytes in "));
    EXPECT_THAT(outcome.output, HasSubstr("receives ENGINE.BIN, 71683 bytes in "));
    EXPECT_THAT(outcome.output, HasSubstr("Print engine: every byte arrived"));
    EXPECT_THAT(outcome.output, HasSubstr("updated (0): "));
}

TEST(VympackRehearse, ThePrinterHasTheGivenFirmware)
{
    const auto outcome = run(kRehearse + " --installed ENGINE=VE010100");
    EXPECT_EQ(outcome.code, 0) << outcome.output;
    EXPECT_EQ(outcome.output.find("receives MAIN.BIN"), std::string::npos);
    EXPECT_THAT(outcome.output, HasSubstr("receives ENGINE.BIN"));
}

TEST(VympackRehearse, AFailedUpdateEndsWithAnError)
{
    const TempFolder folder;
    const auto broken = folder.write("broken", "no package");
    const struct {
        const char* why;
        std::string arguments;
        int code;
    } rows[] = {
        {"too old for the package", kRehearse + " --installed MAIN=VP010000", 1},
        {"nothing to update", kRehearse + " --installed MAIN=VP010211", 1},
        {"no package", "rehearse --quick " + broken, 66},
        {"words that are no firmware", kRehearse + " --installed MAIN", 64},
        {"an output that is full", kRehearse + " >/dev/full", 73},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto outcome = run(row.arguments);
        EXPECT_EQ(outcome.code, row.code) << outcome.output;
    }
}

TEST(VympackRehearse, EveryRuleAndVersionFormArrives)
{
    const TempFolder folder;
    for (const char* version : {"01.20", "AB0101.20", "ABCDEFGH.a.01.20", "ABCD20240102."}) {
        for (const char* rule : {"NO", "YES", "BOTH"}) {
            auto text = replaced(goodDescription(), "AB010203", version);
            text = replaced(replaced(text, "BOTH", rule), " COMPATIBLE=AB010100", "");
            const auto package =
                folder.write("package", container({{"VYMINFO.txt", text}, {"main.bin", "new"}}));
            const auto outcome = run("rehearse --quick " + package);
            EXPECT_EQ(outcome.code, 0) << version << " under " << rule << outcome.output;
        }
    }
}

TEST(VympackRehearse, ASignalEndsIt)
{
    // The signal comes once the program catches it, which the kernel shows.
    const auto outcome = shell(
        std::string(VYMPACK_PROGRAM) + " rehearse " + VYMPACK_DEMO
        + " & p=$!; until [ $((0x$(sed -n 's/^SigCgt:.//p' /proc/$p/status) & 0x4000)) -ne 0 ];"
          " do sleep 0.05; done; kill -TERM $p; wait $p");
    EXPECT_EQ(outcome.code, 130) << outcome.output;
}
