// SPDX-License-Identifier: MIT
#include "Platform/SleepInhibitor.h"
#include "tests/Platform/FakeLoginManager.h"
#include "tests/support/ScriptedTime.h"

#include <chrono>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

using Reply = FakeLoginManager::Reply;
using testing::HasSubstr;
using testing::StartsWith;

namespace {

// Less than the 25 seconds that the bus's own limit of a call has, and time enough for the promised
// second on a busy machine.
constexpr std::chrono::seconds kPatience(15);

// A socket that accepts connections and never answers.
class MuteBus {
public:
    MuteBus()
    {
        const auto path = m_folder / "bus";
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof address.sun_path - 1);
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(m_socket, 1), 0);
        setenv("DBUS_SYSTEM_BUS_ADDRESS", ("unix:path=" + path).c_str(), 1);
    }
    ~MuteBus()
    {
        unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
        close(m_socket);
    }
    MuteBus(const MuteBus&) = delete;
    MuteBus& operator=(const MuteBus&) = delete;

private:
    TempFolder m_folder;
    const int m_socket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

// The note of an inhibitor that soon ended without a lock.
std::string noteOfNone()
{
    const auto start = std::chrono::steady_clock::now();
    const SleepInhibitor inhibitor("Vymkit", "test");
    EXPECT_LT(std::chrono::steady_clock::now() - start, kPatience);
    EXPECT_FALSE(inhibitor.holds());
    return inhibitor.note();
}

} // namespace

// The login manager answers: time stands still, so that it may take as long as it needs to.
TEST(LogindInhibitor, HoldsEverythingWhileItLives)
{
    const ScriptedTime time;
    FakeLoginManager manager([](const Inhibition&) { return Reply::grant; });
    {
        const SleepInhibitor inhibitor("Vymkit", "A printer is being updated");
        EXPECT_TRUE(inhibitor.holds());
        EXPECT_EQ(inhibitor.note(),
                  "sleep inhibitor: shutdown:sleep:idle:handle-lid-switch, block");
        EXPECT_EQ(manager.held(), 1U);
    }
    EXPECT_TRUE(manager.hasAllBack());
    const auto asked = manager.asked();
    ASSERT_EQ(asked.size(), 1U);
    EXPECT_EQ(asked[0].who, "Vymkit");
    EXPECT_EQ(asked[0].why, "A printer is being updated");
}

TEST(LogindInhibitor, TakesWhatItGetsWhereNotEverythingIsAllowed)
{
    const ScriptedTime time;
    FakeLoginManager manager(
        [](const Inhibition& asked) { return asked.isFull() ? Reply::refuse : Reply::grant; });
    {
        const SleepInhibitor inhibitor("Vymkit", "test");
        EXPECT_TRUE(inhibitor.holds());
        EXPECT_EQ(inhibitor.note(),
                  "sleep inhibitor: idle, block; sleep, delay; not more: Permission denied");
        EXPECT_EQ(manager.held(), 2U);
    }
    EXPECT_TRUE(manager.hasAllBack());
}

TEST(LogindInhibitor, TakesOnlyTheDelayWhereNothingElseIsAllowed)
{
    const ScriptedTime time;
    FakeLoginManager manager([](const Inhibition& asked) {
        return asked.mode == "delay" ? Reply::grant : Reply::refuse;
    });
    const SleepInhibitor inhibitor("Vymkit", "test");
    EXPECT_TRUE(inhibitor.holds());
    EXPECT_EQ(inhibitor.note(), "sleep inhibitor: sleep, delay; not more: Permission denied");
    EXPECT_EQ(manager.held(), 1U);
}

TEST(LogindInhibitor, SaysWhyItHoldsNothing)
{
    const ScriptedTime time;
    FakeLoginManager manager([](const Inhibition&) { return Reply::refuse; });
    EXPECT_EQ(noteOfNone(), "no sleep inhibitor: Permission denied");
    EXPECT_EQ(manager.asked().size(), 3U);
}

TEST(LogindInhibitor, DoesNotWaitForALoginManagerThatNeverAnswers)
{
    FakeLoginManager manager([](const Inhibition&) { return Reply::nothing; });
    EXPECT_THAT(noteOfNone(), HasSubstr("timed out"));
}

TEST(LogindInhibitor, DoesNotWaitForABusThatNeverAnswers)
{
    const MuteBus bus;
    EXPECT_THAT(noteOfNone(), HasSubstr("timed out"));
}

TEST(LogindInhibitor, NeedsNoBusAtAll)
{
    setenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus", 1);
    EXPECT_THAT(noteOfNone(), StartsWith("no sleep inhibitor: no system bus: "));
    setenv("DBUS_SYSTEM_BUS_ADDRESS", "not an address", 1);
    EXPECT_THAT(noteOfNone(), StartsWith("no sleep inhibitor: no system bus: "));
    unsetenv("DBUS_SYSTEM_BUS_ADDRESS");
}
