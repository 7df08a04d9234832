// SPDX-License-Identifier: MIT
#include "CLI/Report.h"
#include "tests/support/TempFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

// The output of a report in a file.
template <class Use> std::string written(Use use)
{
    TempFolder folder;
    folder.write("out", "");
    const int file = open((folder / "out").c_str(), O_WRONLY | O_CLOEXEC);
    use(*makeJsonReport(file));
    close(file);
    return readFile(folder / "out");
}

} // namespace

TEST(JsonReport, WritesAStatusOnlyWhereItHasChanged)
{
    const auto text = written([](Report& report) {
        StatusView view{};
        view.record.m_result = 1;
        for (const auto state : {state_entered, state_entered, state_checked}) {
            view.record.m_updateState = state;
            report.status(view);
        }
    });
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 2);
    EXPECT_NE(text.find(R"("state_name":"checked")"), std::string::npos);
}

TEST(JsonReport, NamesTheCauseOfAStop)
{
    const auto text = written([](Report& report) {
        report.stopping(StopCause::user, 1);
        report.stopping(StopCause::deadline, 2);
        report.stopping(StopCause::stall, 3.06);
        report.quiet(60, 61);
    });
    EXPECT_EQ(text, R"({"type":"stopping","schema_version":1,"seconds":1.0,"cause":"signal"}
{"type":"stopping","schema_version":1,"seconds":2.0,"cause":"deadline"}
{"type":"stopping","schema_version":1,"seconds":3.1,"cause":"stall-limit"}
{"type":"quiet","schema_version":1,"seconds":61.0,"quiet_seconds":60.0}
)");
}

TEST(JsonReport, CallsNothingSentThatBrokeOffAtItsFirstBytes)
{
    const auto text = written([](Report& report) {
        Outcome outcome;
        outcome.bytesWentOut = true;
        outcome.firmware.emplace_back();
        outcome.firmware.back().bytesWentOut = true;
        report.finish(outcome);
    });
    EXPECT_NE(text.find(R"("firmware_bytes_sent":true)"), std::string::npos);
    EXPECT_NE(text.find(R"("sent":false,"bytes_sent":0)"), std::string::npos);
}

TEST(JsonReport, NamesNoPrinterInTheResultOfAWholeFleetAndHasNoSuchKeyInThatOfOne)
{
    const auto result = [](bool isOfFleet) {
        return written([isOfFleet](Report& report) {
            Outcome outcome;
            outcome.isOfFleet = isOfFleet;
            report.finish(outcome);
        });
    };
    EXPECT_NE(result(true).find(R"("printer":null)"), std::string::npos) << result(true);
    EXPECT_EQ(result(false).find(R"("printer":)"), std::string::npos) << result(false);
}
