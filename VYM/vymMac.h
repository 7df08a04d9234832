// SPDX-License-Identifier: MIT
// The portability layer: events, threads, time, debug texts, and the engine's queries to the
// operating system. Also includes the plain helpers and the lock. No function throws.
//
// Owns:    an event or thread record belongs to the object that embeds it.
// Threads: any, except where a line says otherwise.
#pragma once
#include "VYM/vymLock.h"
#include "VYM/vymUtil.h"

#include <cstdint>
#include <pthread.h>

// Results of a wait.
constexpr unsigned long kWaitSignalled = 128;
constexpr unsigned long kWaitTimedOut = 258;
constexpr unsigned long kWaitFailed = 0xFFFFFFFF;
// A wait without limit.
constexpr unsigned long kInfinite = 0xFFFFFFFF;

// An event, which is never reset: once it is set, every later wait returns at once. The owner
// zero-fills the record before CreateEvent.
struct TAG_MUTEXDATA {
    std::uint32_t created; // 1 from CreateEvent to CloseEvent
    std::uint32_t signalled; // 1 from the first SetEvent on; read without the mutex, atomically
    pthread_mutex_t mutex;
    pthread_cond_t cond;
};

struct TAG_THREADDATA {
    std::uint32_t created; // 1 while the thread runs or waits to be joined
    pthread_t thread;
};

bool CreateEvent(TAG_MUTEXDATA& event);
bool SetEvent(TAG_MUTEXDATA& event);
// kWaitSignalled, kWaitTimedOut or kWaitFailed. A spurious wake-up counts as signalled. Uses the
// monotonic clock: setting the computer's clock neither ends nor extends a wait.
unsigned long WaitForSingleObjectEvent(TAG_MUTEXDATA& event, unsigned long milliseconds);
bool IsEventSet(TAG_MUTEXDATA& event);
bool CloseEvent(TAG_MUTEXDATA& event);

// Starts a joinable thread; stackSize 0 means the default.
bool _beginthread(TAG_THREADDATA& thread, void* (*routine)(void*), unsigned stackSize,
                  void* argument);
// Joins the thread; waits without limit and ignores milliseconds. kWaitSignalled also for a thread
// that was joined before.
unsigned long WaitForSingleObjectThread(TAG_THREADDATA& thread, unsigned long milliseconds);
[[noreturn]] void _endthread(unsigned code);

// All pauses and clocks of the engine. Tests plug in a source that shortens the pauses, so that the
// tested code runs unchanged.
class TimeSource {
public:
    virtual ~TimeSource() = default;
    [[nodiscard]] virtual std::uint64_t nowMilliseconds() const = 0; // monotonic
    virtual void sleepMilliseconds(unsigned long milliseconds) = 0;
    // The real limit of a wait of that many milliseconds for an event.
    [[nodiscard]] virtual unsigned long waitLimit(unsigned long milliseconds) const = 0;

protected:
    TimeSource() = default;
    TimeSource(const TimeSource&) = default;
    TimeSource& operator=(const TimeSource&) = default;
};
// The caller owns the source and keeps it during its use; null means the system's clock again.
// Threads: before any other thread of the engine runs.
void setTimeSource(TimeSource* source);
std::uint64_t tickMilliseconds();
void pauseMilliseconds(unsigned long milliseconds);
unsigned long eventWaitLimit(unsigned long milliseconds);
void yieldProcessor();

// Debug texts reach OutputDebugString if the level is at least theirs; the level starts at 1. If
// memory runs out, the text is dropped.
void setDebugLogLv(unsigned level);
void outputDebugMsg(const char* text, unsigned level);
// Whether a text of that level would reach a sink; otherwise it need not be formatted.
bool isDebugTextHeard(unsigned level);
// Writes only if a program has set a sink.
void OutputDebugString(const char* text);
using DebugSink = void (*)(const char* text);
// The sink is called on the thread that writes the text and must not throw; null: no texts.
void setDebugSink(DebugSink sink);

// The system's version in BCD: 0x1058 for 10.5.8, 0x1200 for 12, 0x2440 for 24.04; 0 if unknown.
unsigned long getSystemVersion();
// "ja_JP.UTF-8" if the user's language is Japanese, otherwise "en_GB.UTF-8"; free it with free().
[[nodiscard]] char* getLocaleString();

// Sets the folder of the package container; the default is the executable's own. Returns false for
// null or a path of more than 1023 bytes.
// Threads: before the container is opened.
bool setBundleLocation(const char* folder);
// A package file of any name, opened instead of VYMBINDDATA in that folder; empty: none, as at the
// start. Returns and threads as above.
bool setBundleFile(const char* path);
const char* bundleFile(); // empty where none was set
// Writes the folder with its NUL; false if it does not fit or is unknown, because the executable's
// path has 1024 or more bytes.
bool getBundleLocation(char* folder, unsigned long size);
