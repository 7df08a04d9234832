// SPDX-License-Identifier: MIT
#include "CLI/Report.h"
#include "tests/support/TempFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

// The output of a report on its two streams, which are files.
class Reported {
public:
    template <class Use> explicit Reported(Use use, bool quiet = false)
    {
        Options options;
        options.quiet = quiet;
        const int outFile = descriptor("out");
        const int errFile = descriptor("err");
        {
            Display display(errFile, true);
            use(*makeHumanReport(outFile, display, options));
            display.drain();
        }
        close(outFile);
        close(errFile);
        out = readFile(m_folder / "out");
        err = readFile(m_folder / "err");
    }
    std::string out;
    std::string err;

private:
    int descriptor(const char* name)
    {
        m_folder.write(name, "");
        return open((m_folder / name).c_str(), O_WRONLY | O_CLOEXEC);
    }
    TempFolder m_folder;
};

} // namespace

TEST(HumanReport, ShowsErrorsOnTheErrorStreamAndResultsOnTheOther)
{
    const auto finish = [](Verdict verdict) {
        return Reported([verdict](Report& report) {
            Outcome outcome;
            outcome.verdict = verdict;
            outcome.message = "Words.";
            report.finish(outcome);
        });
    };
    EXPECT_EQ(finish(Verdict::updated).out, "Updated: Words.\n");
    EXPECT_EQ(finish(Verdict::failed).err, "Failed: Words.\n");
    EXPECT_EQ(finish(Verdict::failed).out, "");
}

TEST(HumanReport, WarnsAlsoWhereProgressIsNotWanted)
{
    const Reported reported(
        [](Report& report) {
            report.warn("Beware.");
            report.quiet(60, 70);
            report.waiting("Asking", 1);
        },
        true);
    EXPECT_EQ(reported.err, "Warning: Beware.\n");
}

TEST(HumanReport, ShowsPercentAndBytesOfOneMoment)
{
    const Reported reported([](Report& report) {
        StatusView view{};
        view.record.m_updateState = state_sending;
        view.firmwareCount = 1;
        view.step = {"State_PrepUpdate", {}, 0.0, {}};
        report.status(view);
        view.record.m_bytesDone = view.record.m_bytesTotal = 300;
        view.step = {}; // all sent: the bar stays unchanged
        report.status(view);
    });
    EXPECT_EQ(reported.err, "Sending the firmware\n");
}

TEST(HumanReport, ListsWarningsOfFirmwareAfterTheVerdict)
{
    const Reported reported([](Report& report) {
        Outcome outcome;
        outcome.command = Command::check;
        outcome.verdict = Verdict::nothingToUpdate;
        outcome.message = "Words.";
        outcome.firmware.emplace_back();
        outcome.firmware.back().firmware.number = 2;
        outcome.firmware.back().firmware.displayName = "Engine";
        outcome.firmware.back().warning = "Beware.";
        report.finish(outcome);
    });
    EXPECT_EQ(reported.out, "Nothing to update: Words.\nWarning: firmware 2 (Engine): Beware.\n");
}

TEST(HumanReport, ShowsTheLogOfOneRunAndATableOfSeveral)
{
    const auto history = [](const std::string& log) {
        return Reported([&log](Report& report) {
                   Outcome outcome;
                   outcome.command = Command::history;
                   outcome.verdict = log.empty() ? Verdict::history : Verdict::shown;
                   outcome.log = log;
                   outcome.pastRuns.emplace_back();
                   outcome.pastRuns.back().started = "2026-11-21 11:00:00 +0100";
                   report.finish(outcome);
               })
            .out;
    };
    EXPECT_EQ(history("program: vymkit\n"), "program: vymkit\n");
    EXPECT_NE(history("").find("2026-11-21 11:00:00"), std::string::npos) << history("");
}
