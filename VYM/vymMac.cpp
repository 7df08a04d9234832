// SPDX-License-Identifier: MIT
#include "VYM/vymMac.h"

#include "VYM/AsciiCase.h"
#include "VYM/BundlePath.h"
#include "VYM/SystemVersion.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <sched.h>
#include <string_view>
#include <sys/utsname.h>
#include <unistd.h>

namespace {

std::atomic<TimeSource*> g_timeSource{nullptr};
std::atomic<unsigned> g_debugLevel{1};
std::atomic<DebugSink> g_debugSink{nullptr};
char g_bundleLocation[kBundlePathSize]; // empty: the executable's folder
char g_bundleFile[kBundlePathSize]; // empty: VYMBINDDATA in that folder

std::atomic_ref<std::uint32_t> signalledFlag(TAG_MUTEXDATA& event)
{
    return std::atomic_ref(event.signalled);
}

// The time in this many milliseconds, on the clock of the condition variable. Not on the wall
// clock: if that is set back by an hour, a wait takes an hour longer.
timespec monotonicIn(unsigned long milliseconds)
{
    constexpr long kSecond = 1000000000; // in nanoseconds
    timespec limit{};
    clock_gettime(CLOCK_MONOTONIC, &limit);
    const auto nanoseconds = static_cast<long>(milliseconds % 1000) * 1000000 + limit.tv_nsec;
    limit.tv_sec += static_cast<time_t>(milliseconds / 1000) + nanoseconds / kSecond;
    limit.tv_nsec = nanoseconds % kSecond;
    return limit;
}

// A condition variable whose timed waits use the monotonic clock.
bool createCondition(pthread_cond_t& condition)
{
    pthread_condattr_t attributes;
    if (pthread_condattr_init(&attributes) != 0)
        return false;
    const bool created = pthread_condattr_setclock(&attributes, CLOCK_MONOTONIC) == 0
        && pthread_cond_init(&condition, &attributes) == 0;
    pthread_condattr_destroy(&attributes);
    return created;
}

unsigned long waitResult(int error)
{
    if (error == ETIMEDOUT)
        return kWaitTimedOut;
    return error == 0 ? kWaitSignalled : kWaitFailed;
}

// The version in an os-release file; 0 without one.
unsigned long versionInFile(const char* path)
{
    std::FILE* file = nullptr;
    if (!isPlainFile(path) || fopen_s(&file, path, "rb") != 0)
        return 0;
    char text[8192]; // enough for such a file's dozen short lines
    const auto length = std::fread(text, 1, sizeof text, file);
    std::fclose(file);
    return systemVersionFromText(versionIdOf({text, length}));
}

// The first language that the user's locale variables prefer, such as "ja" or "en".
std::string_view preferredLanguage()
{
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return {value, std::strcspn(value, "_.:@")};
    }
    return {};
}

} // namespace

bool CreateEvent(TAG_MUTEXDATA& event)
{
    if (pthread_mutex_init(&event.mutex, nullptr) != 0)
        return false;
    if (!createCondition(event.cond)) {
        pthread_mutex_destroy(&event.mutex);
        return false;
    }
    event.created = 1;
    return true;
}

bool SetEvent(TAG_MUTEXDATA& event)
{
    if (pthread_mutex_lock(&event.mutex) != 0)
        return false;
    const bool signalled = pthread_cond_signal(&event.cond) == 0;
    if (signalled)
        signalledFlag(event).store(1);
    pthread_mutex_unlock(&event.mutex);
    return signalled;
}

bool IsEventSet(TAG_MUTEXDATA& event)
{
    return signalledFlag(event).load() == 1;
}

unsigned long WaitForSingleObjectEvent(TAG_MUTEXDATA& event, unsigned long milliseconds)
{
    if (IsEventSet(event))
        return kWaitSignalled;
    if (pthread_mutex_lock(&event.mutex) != 0)
        return kWaitFailed;
    int error = 0;
    // Checked again under the mutex: an event that was set since the first check would not end the
    // wait.
    if (!IsEventSet(event)) {
        if (milliseconds == kInfinite) {
            error = pthread_cond_wait(&event.cond, &event.mutex);
        } else {
            const auto limit = monotonicIn(eventWaitLimit(milliseconds));
            error = pthread_cond_timedwait(&event.cond, &event.mutex, &limit);
        }
    }
    const auto result = waitResult(error);
    return pthread_mutex_unlock(&event.mutex) == 0 ? result : kWaitFailed;
}

bool CloseEvent(TAG_MUTEXDATA& event)
{
    const bool mutexGone = pthread_mutex_destroy(&event.mutex) == 0;
    const bool condGone = pthread_cond_destroy(&event.cond) == 0;
    if (!mutexGone || !condGone)
        return false;
    event.created = 0;
    return true;
}

bool _beginthread(TAG_THREADDATA& thread, void* (*routine)(void*), unsigned stackSize,
                  void* argument)
{
    if (routine == nullptr)
        return false;
    pthread_attr_t attributes;
    if (pthread_attr_init(&attributes) != 0)
        return false;
    if (stackSize != 0 && pthread_attr_setstacksize(&attributes, stackSize) != 0) {
        pthread_attr_destroy(&attributes);
        return false;
    }
    const bool started = pthread_create(&thread.thread, &attributes, routine, argument) == 0;
    if (started)
        thread.created = 1;
    const bool attributesGone = pthread_attr_destroy(&attributes) == 0;
    return started && attributesGone;
}

unsigned long WaitForSingleObjectThread(TAG_THREADDATA& thread, unsigned long /*milliseconds*/)
{
    // A joined thread must not be joined again: its handle is invalid.
    const int error = thread.created != 0 ? pthread_join(thread.thread, nullptr) : EINVAL;
    if (error != 0 && error != EINVAL)
        return kWaitFailed;
    thread.created = 0;
    return kWaitSignalled;
}

void _endthread(unsigned /*code*/)
{
    pthread_exit(nullptr);
}

void setTimeSource(TimeSource* source)
{
    g_timeSource = source;
}

std::uint64_t tickMilliseconds()
{
    if (const auto* source = g_timeSource.load())
        return source->nowMilliseconds();
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<std::uint64_t>(now.tv_sec) * 1000
        + static_cast<std::uint64_t>(now.tv_nsec) / 1000000;
}

void pauseMilliseconds(unsigned long milliseconds)
{
    if (auto* source = g_timeSource.load()) {
        source->sleepMilliseconds(milliseconds);
        return;
    }
    timespec left{static_cast<time_t>(milliseconds / 1000),
                  static_cast<long>(milliseconds % 1000) * 1000000};
    while (clock_nanosleep(CLOCK_MONOTONIC, 0, &left, &left) == EINTR) { }
}

unsigned long eventWaitLimit(unsigned long milliseconds)
{
    const auto* source = g_timeSource.load();
    return source != nullptr ? source->waitLimit(milliseconds) : milliseconds;
}

void yieldProcessor()
{
    sched_yield();
}

void setDebugLogLv(unsigned level)
{
    g_debugLevel = level;
}

bool isDebugTextHeard(unsigned level)
{
    return g_debugLevel >= level && g_debugSink.load() != nullptr;
}

void outputDebugMsg(const char* text, unsigned level)
{
    if (text == nullptr || !isDebugTextHeard(level))
        return;
    const auto length = std::strlen(text);
    auto* line = static_cast<char*>(AllocMem(length + 2)); // a line feed and the NUL
    if (line == nullptr)
        return;
    std::memcpy(line, text, length + 1);
    line[length] = '\n'; // the block is zeroed after it
    OutputDebugString(line);
    FreeMem(line);
}

void OutputDebugString(const char* text)
{
    if (const auto sink = g_debugSink.load())
        sink(text);
}

void setDebugSink(DebugSink sink)
{
    g_debugSink = sink;
}

unsigned long getSystemVersion()
{
    for (const char* path : {"/etc/os-release", "/usr/lib/os-release"}) {
        if (const auto version = versionInFile(path); version != 0)
            return version;
    }
    // Rolling distributions have no version number: the kernel's release replaces it.
    utsname kernel{};
    return uname(&kernel) == 0 ? systemVersionFromText(kernel.release) : 0;
}

char* getLocaleString()
{
    return strdup(ascii::equalNoCase(preferredLanguage(), "ja") ? "ja_JP.UTF-8" : "en_GB.UTF-8");
}

bool setBundleLocation(const char* folder)
{
    return strcpy_s(g_bundleLocation, kBundlePathSize, folder) == 0;
}

bool setBundleFile(const char* path)
{
    return strcpy_s(g_bundleFile, kBundlePathSize, path) == 0;
}

const char* bundleFile()
{
    return g_bundleFile;
}

bool getBundleLocation(char* folder, unsigned long size)
{
    if (g_bundleLocation[0] != '\0')
        return strcpy_s(folder, size, g_bundleLocation) == 0;
    char path[kBundlePathSize] = {};
    const auto length = readlink("/proc/self/exe", path, kBundlePathSize);
    // A path that fills the buffer is truncated and would name another folder.
    if (length <= 0 || static_cast<unsigned long>(length) >= kBundlePathSize)
        return false;
    char* slash = std::strrchr(path, '/');
    if (slash == nullptr)
        return false;
    *slash = '\0';
    return strcpy_s(folder, size, path) == 0;
}
