// SPDX-License-Identifier: MIT
// The plain helpers of the portability layer: bounded copies, zeroed memory, file opening, string
// tests and the assertion message. The copies return 0 or an errno value: 22 (EINVAL) for a null
// argument, 34 (ERANGE) if the destination is too small; a refused copy leaves it untouched.
//
// Owns:    nothing; the caller owns a block of AllocMem until it passes it to FreeMem.
// Threads: any.
#pragma once
#include <cstdint>
#include <cstdio>

// Copies src and its NUL. 34 if size is 0 or they do not fit.
int strcpy_s(char* dst, unsigned long size, const char* src);
// Makes the same tests for the whole of src, then copies at most count bytes like strncpy: without
// a NUL if src is longer than count, with zeros up to count if it is shorter. Limits count to size,
// so that the zeros stay inside the destination.
int strncpy_s(char* dst, unsigned long size, const char* src, unsigned long count);
int memcpy_s(void* dst, unsigned long size, const void* src, unsigned long count);

// Opens a file like fopen; *result is null on failure. Returns 0, 22, or the errno of the failure.
int fopen_s(std::FILE** result, const char* path, const char* mode);

// True for a regular file, which can be read to its end: a pipe could block its reader forever, and
// a folder or a device has no size.
bool isPlainFile(const char* path);

// A zero-filled block, or null if out of memory. Only FreeMem frees it, and FreeMem frees no other
// blocks.
[[nodiscard]] void* AllocMem(unsigned long size);
void FreeMem(void* block); // null is ignored

// True if text contains only decimal digits; also for null and the empty string.
bool IsNumberStr(const char* text);

// Whether a port string selects the USB transport: it contains "usb" in lower case.
bool IsStdUSBPort(const char* port);
// Printer ports of other platforms; always false here.
bool IsUSBPRNPort(const char* port);
bool IsMPUSBPRNPort(const char* port);
bool IsWin9x(bool& win9x); // leaves its argument untouched

// For a broken caller, never for bad input: prints the place and the expression, then stops the
// process.
[[noreturn]] void assertionFailed(const char* source, unsigned line, const char* expression);
