// SPDX-License-Identifier: MIT
#include "UI/Pages/PrinterSearchThread.h"
#include "tests/UI/Waits.h"
#include "tests/support/Package.h"
#include "tests/support/ScriptedPrintServer.h"

#include <QCoreApplication>
#include <gtest/gtest.h>
#include <new>

namespace {

TargetPrinters onePrinter(const char* name)
{
    TargetPrinters found;
    found.candidates.push_back(PrinterInfo::initWithPrinterName(name, "Model", "net:192.0.2.1"));
    return found;
}

class PrinterSearches : public ::testing::Test {
protected:
    // Receives the signals of a search and records them in told.
    void listen(PrinterSearchThread& search)
    {
        QObject::connect(&search, &PrinterSearchThread::asking, &m_ear,
                         [this](const QString& printer) { told << "asking " + printer; });
        QObject::connect(&search, &PrinterSearchThread::finished, &m_ear,
                         [this](const TargetPrinters& found) {
                             told << QStringLiteral("found %1").arg(found.candidates.size());
                         });
    }
    [[nodiscard]] bool waitFor(const char* words)
    {
        return comesTrue([this, words] { return told.contains(QLatin1String(words)); });
    }
    QStringList told;

private:
    QObject m_ear;
};

} // namespace

TEST_F(PrinterSearches, ReportsQueriesAndResultsOnTheInterfacesThread)
{
    PrinterSearchThread search([](bool, const std::atomic<bool>&, PrinterSearchObserver& observer) {
        EXPECT_NE(QThread::currentThread(), QCoreApplication::instance()->thread());
        observer.askingPrintServer();
        observer.askingDevice(*PrinterInfo::initWithPrinterName("A\x1B", "", ""));
        observer.lookingOnUsb();
        return onePrinter("A");
    });
    listen(search);
    search.start(false);
    EXPECT_TRUE(search.isSearching());
    EXPECT_TRUE(told.isEmpty()) << "nothing is reported before the interface's thread is free";
    EXPECT_TRUE(waitFor("found 1"));
    EXPECT_EQ(told, QStringList({"asking ", "asking A\\x1b", "asking ", "found 1"}));
    EXPECT_FALSE(search.isSearching());
}

TEST_F(PrinterSearches, FindsTheServersQueuesByThePackagesRule)
{
    Package package;
    package.file("main.bin", "image").description({"DRIVERNAME Vymprint"}).open();
    auto server = std::make_shared<ScriptedPrintServer>();
    server->queue("A", "lpd://192.0.2.1/", "Vymprint 200");
    server->queue("B", "lpd://192.0.2.2/", "Another maker's");
    PrinterSearchThread search(PrinterSearchThread::throughServer(server, "USB"));
    listen(search);
    search.start(true);
    EXPECT_TRUE(waitFor("found 1"));
}

TEST_F(PrinterSearches, PassesOnWhetherOnlyQueuesCount)
{
    for (const bool driverOnly : {false, true}) {
        std::atomic<bool> seen = !driverOnly;
        PrinterSearchThread search(
            [&seen](bool only, const std::atomic<bool>&, PrinterSearchObserver&) {
                seen = only;
                return TargetPrinters();
            });
        listen(search);
        told.clear();
        search.start(driverOnly);
        EXPECT_TRUE(waitFor("found 0"));
        EXPECT_EQ(seen, driverOnly);
    }
}

TEST_F(PrinterSearches, ReportsNothingAfterItWasCancelled)
{
    std::atomic<bool> hasEnded = false;
    PrinterSearchThread search(
        [&hasEnded](bool, const std::atomic<bool>& cancel, PrinterSearchObserver& observer) {
            while (!cancel)
                std::this_thread::yield();
            observer.lookingOnUsb();
            hasEnded = true;
            return onePrinter("A");
        });
    listen(search);
    search.start(false);
    search.cancel();
    EXPECT_FALSE(search.isSearching());
    EXPECT_TRUE(comesTrue([&hasEnded] { return hasEnded.load(); }));
    QCoreApplication::processEvents();
    EXPECT_TRUE(told.isEmpty());
}

TEST_F(PrinterSearches, ReportsOnlyTheNewestOfSeveral)
{
    std::atomic<int> searches = 0;
    PrinterSearchThread search(
        [&searches](bool, const std::atomic<bool>& cancel, PrinterSearchObserver&) {
            if (++searches > 1)
                return TargetPrinters();
            while (!cancel)
                std::this_thread::yield();
            return onePrinter("stale");
        });
    listen(search);
    search.start(false);
    EXPECT_TRUE(comesTrue([&searches] { return searches == 1; }));
    search.start(false);
    search.start(true);
    EXPECT_TRUE(waitFor("found 0"));
    EXPECT_EQ(told, QStringList("found 0"));
    EXPECT_EQ(searches, 2);
}

TEST_F(PrinterSearches, FindsNothingWithoutMemory)
{
    PrinterSearchThread search(
        [](bool, const std::atomic<bool>&, PrinterSearchObserver&) -> TargetPrinters {
            throw std::bad_alloc();
        });
    listen(search);
    search.start(false);
    EXPECT_TRUE(waitFor("found 0"));
}

TEST_F(PrinterSearches, IsWaitedForWhenItsOwnerIsDestroyed)
{
    std::atomic<bool> hasEnded = false;
    {
        PrinterSearchThread search(
            [&hasEnded](bool, const std::atomic<bool>& cancel, PrinterSearchObserver&) {
                while (!cancel)
                    std::this_thread::yield();
                hasEnded = true;
                return TargetPrinters();
            });
        search.start(false);
    }
    EXPECT_TRUE(hasEnded);
}

TEST_F(PrinterSearches, ReportEachPrinterBeforeTheList)
{
    PrinterSearchThread search([](bool, const std::atomic<bool>&, PrinterSearchObserver& observer) {
        auto found = onePrinter("A");
        observer.found(found.candidates.front());
        return found;
    });
    listen(search);
    QObject::connect(&search, &PrinterSearchThread::appeared, &search, [this](const auto& printer) {
        told << QString::fromStdString("appeared " + printer->printerName().value_or(""));
    });
    search.start(false);
    EXPECT_TRUE(waitFor("found 1"));
    EXPECT_EQ(told, QStringList({"appeared A", "found 1"}));
}
