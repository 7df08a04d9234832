// SPDX-License-Identifier: MIT
// Makes calls of a whole program fail: loaded before the system's library (LD_PRELOAD), it fails
// the n-th call of one kind, once or from then on. Counting begins with main.
//
//   FAILING_CALL   alloc, open, read, write, poll, connect, send, recv, pread, thread or event;
//                  or clock: none fails, but the wall clock jumps by a day, forth and back, from
//                  one reading to the next
//   FAILING_AT     n, from 1; 0 only counts
//   FAILING_ALWAYS set: every later call of that kind fails, too
//   FAILING_LATE   set: counting begins when the program first connects to an IPv4 address, or when
//                  it calls failing_calls_begin
//   FAILING_COUNT  a file that gets the number of calls when the program ends
//
// Threads: any; the counter is atomic.
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

std::atomic<bool> g_counting{false};
std::atomic<std::uint64_t> g_calls{0};
const char* g_kind = "";
std::uint64_t g_at = 0;
bool g_always = false;
bool g_late = false;

// Whether this call fails; sets errno for it.
bool fails(const char* kind, int error)
{
    if (!g_counting || std::strcmp(kind, g_kind) != 0)
        return false;
    const auto number = ++g_calls;
    if (g_at == 0 || number < g_at || (number > g_at && !g_always))
        return false;
    errno = error;
    return true;
}

template <class Function> Function system(const char* name)
{
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

// Seconds for the next reading of the wall clock.
time_t jump()
{
    constexpr time_t kDay = 24 * 60 * 60;
    return ++g_calls % 2 != 0 && g_at != 0 ? kDay : -kDay;
}

void writeCount()
{
    g_counting = false;
    const char* path = std::getenv("FAILING_COUNT");
    const int file = path != nullptr ? open(path, O_WRONLY | O_CREAT | O_TRUNC, 0600) : -1;
    if (file < 0)
        return;
    char text[32];
    const int length =
        std::snprintf(text, sizeof text, "%llu\n", static_cast<unsigned long long>(g_calls.load()));
    if (write(file, text, static_cast<std::size_t>(length)) != length)
        std::abort();
    close(file);
}

int (*g_main)(int, char**, char**) = nullptr;

int countedMain(int count, char** arguments, char** environment)
{
    const char* at = std::getenv("FAILING_AT");
    const char* kind = std::getenv("FAILING_CALL");
    g_at = at != nullptr ? std::strtoull(at, nullptr, 10) : 0;
    g_kind = kind != nullptr ? kind : "";
    g_always = std::getenv("FAILING_ALWAYS") != nullptr;
    std::atexit(&writeCount);
    g_late = std::getenv("FAILING_LATE") != nullptr;
    g_counting = !g_late;
    return g_main(count, arguments, environment);
}

} // namespace

extern "C" {

void failing_calls_begin()
{
    g_counting = true;
}

void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);

int __libc_start_main(int (*program)(int, char**, char**), int count, char** arguments,
                      void (*first)(), void (*last)(), void (*loaded)(), void* stack)
{
    g_main = program;
    using Start = int (*)(int (*)(int, char**, char**), int, char**, void (*)(), void (*)(),
                          void (*)(), void*);
    return system<Start>("__libc_start_main")(&countedMain, count, arguments, first, last, loaded,
                                              stack);
}

void* malloc(std::size_t size)
{
    return fails("alloc", ENOMEM) ? nullptr : __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size)
{
    return fails("alloc", ENOMEM) ? nullptr : __libc_calloc(count, size);
}

void* realloc(void* block, std::size_t size)
{
    return fails("alloc", ENOMEM) ? nullptr : __libc_realloc(block, size);
}

int open(const char* path, int flags, ...)
{
    va_list values;
    va_start(values, flags);
    const auto mode = va_arg(values, mode_t);
    va_end(values);
    if (fails("open", EMFILE))
        return -1;
    return openat(AT_FDCWD, path, flags, mode);
}

int open64(const char* path, int flags, ...)
{
    va_list values;
    va_start(values, flags);
    const auto mode = va_arg(values, mode_t);
    va_end(values);
    return open(path, flags, mode);
}

FILE* fopen(const char* path, const char* mode)
{
    if (fails("open", EMFILE))
        return nullptr;
    return system<FILE* (*)(const char*, const char*)>("fopen")(path, mode);
}

FILE* fopen64(const char* path, const char* mode)
{
    return fopen(path, mode);
}

ssize_t read(int descriptor, void* bytes, std::size_t length)
{
    if (fails("read", EIO))
        return -1;
    return system<ssize_t (*)(int, void*, std::size_t)>("read")(descriptor, bytes, length);
}

ssize_t write(int descriptor, const void* bytes, std::size_t length)
{
    if (fails("write", ENOSPC))
        return -1;
    return system<ssize_t (*)(int, const void*, std::size_t)>("write")(descriptor, bytes, length);
}

ssize_t pread(int descriptor, void* bytes, std::size_t length, off_t offset)
{
    if (fails("pread", EIO))
        return -1;
    return system<ssize_t (*)(int, void*, std::size_t, off_t)>("pread")(descriptor, bytes, length,
                                                                        offset);
}

ssize_t pread64(int descriptor, void* bytes, std::size_t length, off_t offset)
{
    return pread(descriptor, bytes, length, offset);
}

int poll(pollfd* entries, nfds_t count, int milliseconds)
{
    if (fails("poll", ENOMEM))
        return -1;
    return system<int (*)(pollfd*, nfds_t, int)>("poll")(entries, count, milliseconds);
}

int connect(int descriptor, const sockaddr* address, socklen_t length)
{
    if (g_late && address->sa_family == AF_INET)
        g_counting = true;
    if (fails("connect", ENETUNREACH))
        return -1;
    return system<int (*)(int, const sockaddr*, socklen_t)>("connect")(descriptor, address, length);
}

ssize_t send(int descriptor, const void* bytes, std::size_t length, int flags)
{
    if (fails("send", ENOBUFS))
        return -1;
    return system<ssize_t (*)(int, const void*, std::size_t, int)>("send")(descriptor, bytes,
                                                                           length, flags);
}

ssize_t recv(int descriptor, void* bytes, std::size_t length, int flags)
{
    if (fails("recv", ENOMEM))
        return -1;
    return system<ssize_t (*)(int, void*, std::size_t, int)>("recv")(descriptor, bytes, length,
                                                                     flags);
}

int pthread_create(pthread_t* thread, const pthread_attr_t* attributes, void* (*routine)(void*),
                   void* argument)
{
    if (fails("thread", EAGAIN))
        return EAGAIN;
    using Create = int (*)(pthread_t*, const pthread_attr_t*, void* (*)(void*), void*);
    return system<Create>("pthread_create")(thread, attributes, routine, argument);
}

int pthread_cond_init(pthread_cond_t* condition, const pthread_condattr_t* attributes)
{
    if (fails("event", ENOMEM))
        return ENOMEM;
    using Initialise = int (*)(pthread_cond_t*, const pthread_condattr_t*);
    return system<Initialise>("pthread_cond_init")(condition, attributes);
}

int clock_gettime(clockid_t clock, timespec* time)
{
    const int result = system<int (*)(clockid_t, timespec*)>("clock_gettime")(clock, time);
    if (clock == CLOCK_REALTIME && g_counting && std::strcmp("clock", g_kind) == 0)
        time->tv_sec += jump();
    return result;
}

time_t time(time_t* into)
{
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (into != nullptr)
        *into = now.tv_sec;
    return now.tv_sec;
}

} // extern "C"
