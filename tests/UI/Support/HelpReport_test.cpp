// SPDX-License-Identifier: MIT
#include "UI/Support/HelpReport.h"
#include "tests/support/ScriptedPrintServer.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

// Anna's computer: a package on a stick, a log, two queues.
class Report : public testing::Test {
protected:
    Report()
    {
        m_log.write("run-20261121T100000.000Z-8.log",
                    "program: vymkit 1.0.0\nstarted: 2026-11-21 11:00:00 +0100\n"
                    "package: /media/anna/Plan B\nprinter: Office\n"
                    "address: usb://Acme/Vymprint%20200?serial=VX900177\n"
                    "note: lab-7.example at 192.0.2.7 said \"VX900177\"\n"
                    "result: updated\nended: 2026-11-21 11:01:00 +0100\n");
        m_server.queue("Office", "lpd://lab-7.example/q");
        m_facts.program = "vymkit 1.0.0";
        m_facts.packagePath = "/media/anna/Plan B";
        m_facts.doctor.printServer = &m_server;
        m_facts.doctor.program = "test";
        m_facts.doctor.logFolder = m_log.path().string();
        m_facts.doctor.uri = "lpd://lab-7.invalid/q";
        m_facts.personal = {{"anna", "Anna Vogel"}, {"/home/anna"}, "anna-laptop"};
    }
    [[nodiscard]] std::string text(const OpenedPackage& opened) const
    {
        return helpreport::compose(opened, m_facts);
    }
    static OpenedPackage usable()
    {
        PackageFacts facts{};
        facts.folder = "/media/anna/Plan B";
        facts.file = "/media/anna/Plan B/VYMBINDDATA";
        facts.model = "Vymprint 200";
        facts.product = "Vymprint";
        facts.portNumber = 48350;
        facts.updateSeconds = 60;
        facts.signature = PackageSignature{"maker.pub", "timestamp:17\\x09file:plan-b.bin"};
        facts.firmware = {
            {1, "MAIN", "VP010210", "Main controller", "1.2.10", "MAIN", "", "main.bin", 300000}};
        return {facts, {}, PackageState::usable};
    }

    TempFolder m_log;
    ScriptedPrintServer m_server;
    helpreport::Facts m_facts;
};

} // namespace

TEST_F(Report, TellsFindingsVersionsThePackageAndTheLastLog)
{
    const auto report = text(usable());
    EXPECT_THAT(report,
                AllOf(HasSubstr("ok, package: The package is for Vymprint 200"),
                      HasSubstr("ok, signature: The package is signed with maker.pub"),
                      HasSubstr("program: vymkit 1.0.0"), HasSubstr("C library: 2."),
                      HasSubstr("TCP port: 48350"),
                      HasSubstr("firmware 1: MAIN VP010210 (Main controller 1.2.10), 300000 bytes"),
                      HasSubstr("started: 2026-11-21 11:00:00"), HasSubstr("result: updated")));
}

TEST_F(Report, HasNothingPersonal)
{
    const OpenedPackage bad{std::nullopt, "There is no folder '/media/anna/Plan B'.",
                            PackageState::unusable};
    for (const auto& opened : {usable(), bad}) {
        const auto report = text(opened);
        for (const auto* secret :
             {"anna", "Anna", "Vogel", "Plan B", "VX900177", "lab-7", "192.0.2.7", "plan-b"})
            EXPECT_THAT(report, Not(HasSubstr(secret)));
        EXPECT_THAT(report, HasSubstr("usb://Acme/Vymprint%20200?serial=<serial-"));
    }
}

TEST_F(Report, UsesTheSameStandInInFindingsPackageAndLog)
{
    const auto report = text(usable());
    EXPECT_THAT(report, HasSubstr("file: <folder-1>/VYMBINDDATA"));
    EXPECT_THAT(report, HasSubstr("package: <folder-1>\n"));
    EXPECT_THAT(report, HasSubstr("The name '<host-1>' has no IPv4 address"));
}

TEST_F(Report, SaysThatThereIsNoLog)
{
    const TempFolder empty;
    m_facts.doctor.logFolder = empty.path().string();
    EXPECT_THAT(text(usable()), HasSubstr("No run has left a log yet."));
}

TEST_F(Report, NamesTheLoadedLibrariesOnce)
{
    const TempFolder folder;
    folder.write("maps",
                 "7f00-7f01 r-xp 00000000 08:01 1 /usr/lib/libusb-1.0.so.0.3.0\n"
                 "7f01-7f02 r--p 00001000 08:01 1 /usr/lib/libusb-1.0.so.0.3.0\n"
                 "7f02-7f03 rw-p 00000000 00:00 0 [heap]\n"
                 "7f03-7f04 r--p 00000000 08:01 2 /home/anna/font.ttf\n"
                 "7f04-7f05 r-xp 00000000 08:01 3 /usr/lib/libQt6Core.so.6.4.2\n");
    EXPECT_THAT(helpreport::loadedLibraries(folder / "maps"),
                ElementsAre("libQt6Core.so.6.4.2", "libusb-1.0.so.0.3.0"));
    EXPECT_FALSE(helpreport::loadedLibraries().empty());
    EXPECT_TRUE(helpreport::loadedLibraries("/nowhere").empty());
}
