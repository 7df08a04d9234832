#include "VYM/vymMac.h"

#include "VYM/SystemVersion.h"

#include <atomic>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iterator>
#include <sched.h>
#include <string>
#include <strings.h>
#include <sys/time.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace {

constexpr unsigned long kLocationSize = 1024; // the path buffer of the container's location

std::atomic<TimeSource*> g_timeSource{nullptr};
std::atomic<unsigned> g_debugLevel{1};
std::atomic<DebugSink> g_debugSink{nullptr};
char g_bundleLocation[kLocationSize]; // empty: the executable's folder

std::atomic_ref<std::uint32_t> signalledFlag(TAG_MUTEXDATA& event)
{
    return std::atomic_ref(event.signalled);
}

// The wall clock's time, so many milliseconds from now, as the condition variable wants it.
timespec wallClockIn(unsigned long milliseconds)
{
    timeval now{};
    gettimeofday(&now, nullptr);
    const auto microseconds = static_cast<long>(milliseconds % 1000) * 1000 + now.tv_usec;
    timespec limit{};
    limit.tv_sec = now.tv_sec + static_cast<time_t>(milliseconds / 1000) + microseconds / 1000000;
    limit.tv_nsec = microseconds % 1000000 * 1000;
    return limit;
}

unsigned long waitResult(int error)
{
    if (error == ETIMEDOUT)
        return kWaitTimedOut;
    return error == 0 ? kWaitSignalled : kWaitFailed;
}

std::string fileText(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The first language that the user's locale variables prefer, such as "ja" or "en".
std::string preferredLanguage()
{
    for (const char* name : {"LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char* value = std::getenv(name);
        if (value != nullptr && *value != '\0')
            return std::string(value, std::strcspn(value, "_.:@"));
    }
    return {};
}

} // namespace

bool CreateEvent(TAG_MUTEXDATA& event)
{
    if (pthread_mutex_init(&event.mutex, nullptr) != 0)
        return false;
    if (pthread_cond_init(&event.cond, nullptr) != 0) {
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
    // Asked once more under the mutex: an event set since the first look would never wake us.
    if (!IsEventSet(event)) {
        if (milliseconds == kInfinite) {
            error = pthread_cond_wait(&event.cond, &event.mutex);
        } else {
            const auto limit = wallClockIn(eventWaitLimit(milliseconds));
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
    // A thread that was joined must not be joined again: its handle means nothing any more.
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

void outputDebugMsg(const char* text, unsigned level)
{
    if (text != nullptr && g_debugLevel >= level)
        OutputDebugString((std::string(text) + "\n").c_str());
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
        const auto text = fileText(path);
        if (const auto version = systemVersionFromText(versionIdOf(text)); version != 0)
            return version;
    }
    // Rolling distributions carry no version of their own: the kernel's release stands for it.
    utsname kernel{};
    return uname(&kernel) == 0 ? systemVersionFromText(kernel.release) : 0;
}

char* getLocaleString()
{
    const auto language = preferredLanguage();
    return strdup(strcasecmp(language.c_str(), "ja") == 0 ? "ja_JP.UTF-8" : "en_GB.UTF-8");
}

bool setBundleLocation(const char* folder)
{
    return strcpy_s(g_bundleLocation, kLocationSize, folder) == 0;
}

bool getBundleLocation(char* folder, unsigned long size)
{
    if (g_bundleLocation[0] != '\0')
        return strcpy_s(folder, size, g_bundleLocation) == 0;
    char path[kLocationSize] = {};
    const auto length = readlink("/proc/self/exe", path, kLocationSize - 1);
    if (length <= 0)
        return false;
    char* slash = std::strrchr(path, '/');
    if (slash == nullptr)
        return false;
    *slash = '\0';
    return strcpy_s(folder, size, path) == 0;
}
