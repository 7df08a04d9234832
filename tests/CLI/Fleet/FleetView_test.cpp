// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetView.h"
#include "tests/support/TempFolder.h"
#include "tests/support/TerminalScreen.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

using testing::HasSubstr;

namespace {

class SilentReport : public Report {
public:
    void waiting(const std::string& /*stage*/, double /*seconds*/) override { }
    void status(const StatusView& /*view*/) override { }
    void warn(const std::string& /*text*/) override { }
    void quiet(double /*silence*/, double /*seconds*/) override { }
    void stopping(StopCause cause, double /*seconds*/) override { causes.push_back(cause); }
    void finish(const Outcome& /*outcome*/) override { }
    void finishBriefly(std::string_view /*line*/) override { }
    std::vector<StopCause> causes;
};

// A view whose streams are files.
class ViewRun {
public:
    explicit ViewRun(bool json, bool quiet = false)
    {
        options.json = json;
        options.quiet = quiet;
    }
    ~ViewRun()
    {
        close(m_out);
        close(m_err);
    }
    ViewRun(const ViewRun&) = delete;
    ViewRun& operator=(const ViewRun&) = delete;

    void show(const std::function<void(FleetObserver&)>& events)
    {
        Display display(console.err, true);
        PacketTrace trace(nullptr, [] { return 0.0; });
        Workplace place{options, console, session, display, report, trace, nullptr};
        events(*makeFleetView(names, place));
        display.drain();
        out = readFile(m_folder / "out");
        err = readFile(m_folder / "err");
    }

    std::string out;
    std::string err;
    SilentReport report;
    Options options;
    const std::vector<std::string> names = {"192.0.2.7", "Hall"};

private:
    TempFolder m_folder;
    int m_out = open((m_folder / "out").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
    int m_err = open((m_folder / "err").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);

public:
    Console console{-1, m_out, m_err};
    Session session;
};

MemberEnd end(MemberClass memberClass, std::string message)
{
    MemberEnd made;
    made.memberClass = memberClass;
    made.message = std::move(message);
    return made;
}

} // namespace

TEST(FleetView, WritesEachLineWithItsPrinterAsJson)
{
    ViewRun run(true);
    run.show([](FleetObserver& view) {
        view.started(0);
        view.line(0, R"({"type":"status","progress":1})");
        view.waited();
        view.ended(1, R"({"type":"result","exit_code":0})", end(MemberClass::updated, ""));
        view.stopping(Wake::signal);
    });
    EXPECT_EQ(run.out,
              "{\"type\":\"status\",\"printer\":\"192.0.2.7\",\"progress\":1}\n"
              "{\"type\":\"result\",\"printer\":\"Hall\",\"exit_code\":0}\n"
              "{\"type\":\"stopping\",\"schema_version\":1,\"seconds\":0.0,"
              "\"cause\":\"signal\"}\n");
    EXPECT_EQ(run.err, "");
}

TEST(FleetView, WritesALineForEachPrinterThatHasEnded)
{
    ViewRun run(false);
    run.show([](FleetObserver& view) {
        view.started(0);
        view.started(1);
        view.line(0, R"({"type":"status","state_name":"sending"})");
        view.ended(1, "", end(MemberClass::nothingToUpdate, "All is new."));
        view.ended(0, "", end(MemberClass::failed, "It is away.\x1b"));
        view.stopping(Wake::deadline);
    });
    EXPECT_EQ(run.err,
              "[1/2] Hall: nothing to update\n[2/2] 192.0.2.7: failed: It is away.\\x1b\n");
    EXPECT_EQ(run.out, "");
    EXPECT_THAT(run.report.causes, testing::ElementsAre(StopCause::deadline));
}

TEST(FleetView, StaysQuietOnRequest)
{
    ViewRun run(false, true);
    run.show([](FleetObserver& view) {
        view.started(0);
        view.ended(0, "", end(MemberClass::failed, "It is away."));
    });
    EXPECT_EQ(run.err, "");
}

TEST(FleetView, ShowsALineForEachRunningPrinterAndACountBelowAtATerminal)
{
    const TerminalScreen screen;
    ViewRun run(false);
    run.console.err = screen.program;
    run.show([](FleetObserver& view) {
        view.started(0);
        view.started(1);
        view.line(0,
                  R"({"type":"status","state_name":"sending","firmware_number":1,)"
                  R"("firmware_count":2,"progress":45.2})");
        view.waited();
        view.ended(1, "", end(MemberClass::failed, "It is away."));
    });
    const auto shown = screen.shown();
    EXPECT_THAT(shown,
                HasSubstr("  192.0.2.7  sending firmware 1 of 2  45 %\r\n  Hall  starting\r\n"
                          "0 of 2 ended, 2 running, 0 waiting"));
    EXPECT_THAT(shown, HasSubstr("[1/2] Hall: failed: It is away.\r\n"));
    EXPECT_THAT(shown, HasSubstr("1 of 2 ended (1 not well), 1 running, 0 waiting"));
}

TEST(FleetView, NumbersAFirmwareOnlyAmongSeveralAndOnlyOnceItHasBegun)
{
    const TerminalScreen screen;
    ViewRun run(false);
    run.console.err = screen.program;
    run.show([](FleetObserver& view) {
        view.started(0);
        view.started(1);
        view.line(0,
                  R"({"type":"status","state_name":"sending","firmware_number":1,)"
                  R"("firmware_count":1,"progress":45.2})");
        view.line(1,
                  R"({"type":"status","state_name":"entered","firmware_number":0,)"
                  R"("firmware_count":2})");
        view.waited();
        view.ended(1, "", end(MemberClass::failed, "It is away."));
    });
    const auto shown = screen.shown();
    EXPECT_THAT(shown, HasSubstr("  192.0.2.7  sending  45 %\r\n  Hall  entered\r\n"));
    EXPECT_THAT(shown, testing::Not(HasSubstr("firmware")));
}
