// SPDX-License-Identifier: MIT
#include "UI/Run/RunLock.h"
#include "tests/support/ScriptedLocks.h"

#include <gtest/gtest.h>

namespace {

using Status = RunLock::Status;

RunTarget at(const char* uri)
{
    RunTarget target;
    target.takePortString(uri);
    return target;
}

RunTarget atAddress(const char* address)
{
    RunTarget target;
    target.takeAddress(address);
    return target;
}

} // namespace

TEST(RunLock, KnowsAPrinterByHostAndPortOrBySerialNumber)
{
    const struct {
        const char* why;
        RunTarget target;
        unsigned short port;
        const char* name;
    } rows[] = {
        {"an address", atAddress("192.0.2.7"), 9100, "tcp 192.0.2.7 9100"},
        {"another port is another printer", atAddress("192.0.2.7"), 9101, "tcp 192.0.2.7 9101"},
        {"a queue's address", at("lpd://192.0.2.7/queue"), 9100, "tcp 192.0.2.7 9100"},
        {"the driver's own scheme", at("net:192.0.2.7"), 9100, "tcp 192.0.2.7 9100"},
        {"the port in a queue's address is not used", at("lpd://192.0.2.7:515/"), 9100,
         "tcp 192.0.2.7 9100"},
        {"a host's name in any case", at("lpd://Printer.Example/"), 9100,
         "tcp PRINTER.EXAMPLE 9100"},
        {"USB", at("usb://Acme/P1?serial=A1"), 9100, "usb A1"},
        {"USB, whatever the port", at("usb://Acme/P1?serial=A1"), 9101, "usb A1"},
        {"serial numbers differ by case", at("usb://Acme/P1?serial=a1"), 9100, "usb a1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(RunLock::nameOf(row.target, row.port), row.name);
    }
}

TEST(RunLock, SaysWhichProcessUpdatesThePrinter)
{
    ScriptedLocks locks;
    locks.heldBy = 12;
    RunLock lock;
    EXPECT_EQ(lock.take(atAddress("192.0.2.7"), 9100), Status::held);
    EXPECT_FALSE(lock.isTaken());
    EXPECT_EQ(lock.heldText(), "another update of this printer is running here (process 12)");
}

TEST(RunLock, SaysNoProcessThatIsUnknown)
{
    ScriptedLocks locks;
    locks.heldBy = 0;
    RunLock lock;
    EXPECT_EQ(lock.take(atAddress("192.0.2.7"), 9100), Status::held);
    EXPECT_EQ(lock.heldText(), "another update of this printer is running here");
}

TEST(RunLock, OnceTakenStaysTakenUntilReleased)
{
    ScriptedLocks locks;
    RunLock lock;
    EXPECT_EQ(lock.take(atAddress("192.0.2.7"), 9100), Status::taken);
    EXPECT_EQ(lock.take(atAddress("192.0.2.7"), 9100), Status::taken);
    EXPECT_EQ(locks.attempts, 1);
    EXPECT_EQ(locks.holding, 1);
    lock.release();
    EXPECT_EQ(locks.holding, 0);
}

TEST(RunLock, RefusesNothingWhereTheSystemHasNoLocks)
{
    RunLock lock;
    EXPECT_EQ(lock.take(atAddress("192.0.2.7"), 9100), Status::unavailable);
    EXPECT_FALSE(lock.isTaken());
}
