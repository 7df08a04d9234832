// SPDX-License-Identifier: MIT
// Whole runs through the window's controller: the real engine, a virtual printer over real sockets,
// and the final message to the user.
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedTime.h"
#include "tests/system/Desk.h"

#include <QProgressBar>

namespace {

using namespace desk;

constexpr unsigned long kFactor = 20; // the engine's pauses are cut to a twentieth
constexpr int kLongestRun = std::chrono::milliseconds(kSoon).count();

class WindowRun : public ::testing::Test {
protected:
    WindowRun()
    {
        qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere");
        qputenv("XDG_STATE_HOME", m_state.path().c_str());
    }

    // Runs from the opening page to the end with a typed address; returns the last message.
    Alert run(const PackageFolder& package, const std::string& address)
    {
        wizard.noPackage();
        Package::openFolder(package.path());
        wizard.open().toPrinters();
        type(address);
        wizard.press("_selDev1NextBtn");
        wizard.alerts.queueAnswer(alert::kDefault); // to the question
        wizard.alerts.queueAnswer(alert::kDefault); // to the message
        wizard.controller->startUpdateAction();
        const auto watched = [this] {
            note(wizard.text("_progressCmtTxt"));
            return wizard.controller->hasEnded();
        };
        EXPECT_TRUE(QTest::qWaitFor(watched, kLongestRun));
        EXPECT_FALSE(wizard.window("_updateWindow").isVisible());
        return wizard.alerts.asked().back();
    }

    ShortPauses pauses{kFactor, kClockSlowness};
    Wizard wizard;
    QStringList lines; // the texts that the progress window showed, each change once

private:
    void type(const std::string& address)
    {
        wizard.find<InputNSMatrixControl>("_IPAddressMatrix").selectTextAtColumn(0);
        for (const char c : address)
            QTest::keyClick(QApplication::focusWidget(), c);
    }
    void note(const QString& line)
    {
        if (lines.isEmpty() || lines.back() != line)
            lines << line;
    }

    TempFolder m_state;
};

TEST_F(WindowRun, EndsWithTheFirmwareInThePrinterAndTheGoodNews)
{
    const PackageFolder package({{"MAIN", "AB010200", 60000}, {"BOOT", "01.20", 100}});
    // It writes as long as five of the window's looks take, so that one of them sees it.
    const VirtualPrinter printer({"--firmware", "MAIN=AB010100", "--firmware", "BOOT=01.10",
                                  "--status-query", "--write-rate", "12000"});
    const auto told = run(package, printer.address());
    EXPECT_EQ(told.title, "NormalEndTitle");
    EXPECT_EQ(told.style, AlertStyle::informational);
    EXPECT_TRUE(printer.stored("MAIN.FW") == package.bytesOf(0));
    EXPECT_TRUE(printer.stored("BOOT.FW") == package.bytesOf(1));
    EXPECT_EQ(lines.front(), "State_Connection");
    EXPECT_TRUE(lines.contains("State_WriteUpdate_Plural")) << lines.join(' ').toStdString();
}

TEST_F(WindowRun, EndsWithNothingToDoWhereThePrinterHasItAll)
{
    const PackageFolder package({{"MAIN", "AB010200", 60000}});
    const VirtualPrinter printer({"--firmware", "MAIN=AB010200"});
    const auto told = run(package, printer.address());
    EXPECT_EQ(told.title, "NoUpdateEndTitle");
    EXPECT_EQ(told.style, AlertStyle::informational);
    EXPECT_EQ(printer.storedFiles(), 0U);
}

struct Trouble {
    const char* fault;
    const char* title;
};

void PrintTo(const Trouble& trouble, std::ostream* out)
{
    *out << trouble.fault;
}

class PrinterInTrouble : public WindowRun, public ::testing::WithParamInterface<Trouble> { };

TEST_P(PrinterInTrouble, EndsTheRunWithTheReason)
{
    const PackageFolder package({{"MAIN", "AB010200", 60000}});
    const VirtualPrinter printer({"--firmware", "MAIN=AB010100", "--fault", GetParam().fault});
    const auto told = run(package, printer.address());
    EXPECT_EQ(told.title, GetParam().title);
    EXPECT_EQ(told.style, AlertStyle::critical);
    EXPECT_NE(told.details, "");
}

INSTANTIATE_TEST_SUITE_P(Each, PrinterInTrouble,
                         ::testing::Values(Trouble{"wrong-model", "Error_ModelMismatchTitle"},
                                           Trouble{"refuse-busy", "Error_DeviceBusyTitle"},
                                           Trouble{"refuse-fax", "Error_FaxTitle"},
                                           Trouble{"status-0803@piece", "Error_DeviceErrorTitle"},
                                           Trouble{"status-0804@piece", "Error_ConnectErrorTitle"},
                                           Trouble{"reset@piece:20000", "Error_PoweredOffTitle"},
                                           Trouble{"silent@status", "Error_OtherTitle"}));

TEST_F(WindowRun, EndsWithTheReasonIfNoPrinterAnswers)
{
    const PackageFolder package({{"MAIN", "AB010200", 60000}});
    const auto told = run(package, ownAddress());
    EXPECT_EQ(told.title, "Error_PoweredOffTitle");
    EXPECT_EQ(told.style, AlertStyle::critical);
}

} // namespace
