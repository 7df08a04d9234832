// Bounded copies, zeroed memory, file opening, string tests and the assertion message: the plain
// helpers of the portability layer. The copies return 0 or an errno value: 22 (EINVAL) for a null
// argument, 34 (ERANGE) where the destination is too small; a refused copy leaves it untouched.
//
// Owns:    nothing; a block of AllocMem belongs to its caller until it goes back to FreeMem.
// Threads: any.
#pragma once
#include <cstdint>
#include <cstdio>

// Copies src and its NUL. 34 when size is 0 or src and its NUL do not fit.
int strcpy_s(char* dst, unsigned long size, const char* src);
// The same tests against the whole of src, then at most count bytes the way strncpy copies them:
// no NUL when src is longer than count, zeros up to count when it is shorter. A count above size
// is cut to size, so that the zeros stay inside the destination.
int strncpy_s(char* dst, unsigned long size, const char* src, unsigned long count);
int memcpy_s(void* dst, unsigned long size, const void* src, unsigned long count);

// Opens a file as fopen does; *result is null on failure. 0, 22, or the errno of the failure.
int fopen_s(std::FILE** result, const char* path, const char* mode);

// True for a file that can be read to its end: a pipe could block its reader for ever, a folder or
// a device has no size.
bool isPlainFile(const char* path);

// A zero-filled block, null when memory cannot hold it. Blocks come from here and go back to
// FreeMem only.
[[nodiscard]] void* AllocMem(unsigned long size);
void FreeMem(void* block); // null is ignored

// True when text holds decimal digits only; also for null and for the empty string.
bool IsNumberStr(const char* text);

// Which transport a port string means: true for any text with "usb" in it, in lower case.
bool IsStdUSBPort(const char* port);
// Printer ports of other platforms; always false here.
bool IsUSBPRNPort(const char* port);
bool IsMPUSBPRNPort(const char* port);
bool IsWin9x(bool& win9x); // leaves its argument untouched

// A broken caller, never bad input: prints the place and the expression, then stops the process.
[[noreturn]] void assertionFailed(const char* source, unsigned line, const char* expression);
