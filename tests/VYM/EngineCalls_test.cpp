// SPDX-License-Identifier: MIT
// Calls that no result shows: the linker redirects them to wrappers (--wrap) that record them.
#include "DevConn/DevConnMgr.h"
#include "VYM/vymMac.h"
#include "tests/support/ProtocolFixture.h"

#include <functional>

namespace {

int g_signals = 0;
int g_broadcasts = 0;
std::function<void()> g_beforeNextLock;
std::vector<IdleWork*> g_idleWork;

class EngineCalls : public ProtocolFixture {
protected:
    EngineCalls()
    {
        g_signals = 0;
        g_broadcasts = 0;
        g_idleWork.clear();
    }
};

} // namespace

extern "C" {

int __real_pthread_cond_signal(pthread_cond_t* condition);
int __wrap_pthread_cond_signal(pthread_cond_t* condition)
{
    ++g_signals;
    return __real_pthread_cond_signal(condition);
}

int __real_pthread_cond_broadcast(pthread_cond_t* condition);
int __wrap_pthread_cond_broadcast(pthread_cond_t* condition)
{
    ++g_broadcasts;
    return __real_pthread_cond_broadcast(condition);
}

int __real_pthread_mutex_lock(pthread_mutex_t* mutex);
int __wrap_pthread_mutex_lock(pthread_mutex_t* mutex)
{
    const auto before = std::exchange(g_beforeNextLock, nullptr);
    if (before)
        before();
    return __real_pthread_mutex_lock(mutex);
}

// DevConnMgr::SetIdleWork under its linker name.
long __real__ZN10DevConnMgr11SetIdleWorkEPvP8IdleWork(DevConnMgr* self, void* handle,
                                                      IdleWork* work);
long __wrap__ZN10DevConnMgr11SetIdleWorkEPvP8IdleWork(DevConnMgr* self, void* handle,
                                                      IdleWork* work)
{
    g_idleWork.push_back(work);
    return __real__ZN10DevConnMgr11SetIdleWorkEPvP8IdleWork(self, handle, work);
}

} // extern "C"

namespace {

TEST_F(EngineCalls, AnEventWakesOneWaiterAndSignalsOnce)
{
    TAG_MUTEXDATA event{};
    ASSERT_TRUE(CreateEvent(event));
    EXPECT_TRUE(SetEvent(event));
    EXPECT_EQ(g_signals, 1);
    EXPECT_EQ(g_broadcasts, 0);
    EXPECT_TRUE(CloseEvent(event));
}

// Sets the event between the check of the flag and the wait: no signal would end that wait.
TEST_F(EngineCalls, AnEventThatIsSetJustBeforeTheWaitIsNotMissed)
{
    TAG_MUTEXDATA event{};
    ASSERT_TRUE(CreateEvent(event));
    g_beforeNextLock = [&] { SetEvent(event); };
    EXPECT_EQ(WaitForSingleObjectEvent(event, 60000), kWaitSignalled);
    EXPECT_TRUE(m_time.waits().empty()); // it did not wait at all
    EXPECT_TRUE(CloseEvent(event));
}

TEST_F(EngineCalls, NoReadingAheadOutlivesTheImage)
{
    package({"UPDATETIME 10"});
    open();
    tell(targetInfo());
    m_script.answerWith([](const std::string&) { return printer::piece(0x80); });
    ASSERT_EQ(update(), 1);
    ASSERT_GE(g_idleWork.size(), 2U);
    EXPECT_NE(g_idleWork.front(), nullptr);
    EXPECT_EQ(g_idleWork.back(), nullptr);
}

TEST_F(EngineCalls, NoReadingAheadOutlivesAnImageThatWasRefused)
{
    package({"UPDATETIME 10"});
    open();
    tell(targetInfo());
    m_script.answerWith([](const std::string&) { return printer::piece(0x804); });
    ASSERT_EQ(update(), -2);
    EXPECT_EQ(g_idleWork.back(), nullptr);
}

} // namespace
