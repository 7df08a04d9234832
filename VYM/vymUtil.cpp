// SPDX-License-Identifier: MIT
#include "VYM/vymUtil.h"

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <string_view>
#include <sys/stat.h>

int strcpy_s(char* dst, unsigned long size, const char* src)
{
    if (dst == nullptr || src == nullptr)
        return EINVAL;
    const auto length = std::strlen(src);
    if (size <= length)
        return ERANGE;
    std::memcpy(dst, src, length + 1);
    return 0;
}

int strncpy_s(char* dst, unsigned long size, const char* src, unsigned long count)
{
    if (dst == nullptr || src == nullptr)
        return EINVAL;
    const auto length = std::strlen(src);
    if (size <= length)
        return ERANGE;
    const auto room = std::min(count, size);
    const auto copied = std::min(length, room);
    std::memcpy(dst, src, copied);
    std::memset(dst + copied, 0, room - copied);
    return 0;
}

int memcpy_s(void* dst, unsigned long size, const void* src, unsigned long count)
{
    if (dst == nullptr || src == nullptr)
        return EINVAL;
    if (size < count)
        return ERANGE;
    std::memcpy(dst, src, count);
    return 0;
}

int fopen_s(std::FILE** result, const char* path, const char* mode)
{
    if (result == nullptr || path == nullptr || mode == nullptr)
        return EINVAL;
    errno = 0;
    *result = std::fopen(path, mode);
    return *result != nullptr ? 0 : errno;
}

bool isPlainFile(const char* path)
{
    struct stat status { };
    return path != nullptr && stat(path, &status) == 0 && S_ISREG(status.st_mode);
}

void* AllocMem(unsigned long size)
{
    return std::calloc(std::max(size, 1UL), 1);
}

void FreeMem(void* block)
{
    std::free(block);
}

bool IsNumberStr(const char* text)
{
    const std::string_view view = text != nullptr ? text : "";
    return std::all_of(view.begin(), view.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool IsStdUSBPort(const char* port)
{
    return port != nullptr && std::string_view(port).find("usb") != std::string_view::npos;
}

bool IsUSBPRNPort(const char* /*port*/)
{
    return false;
}

bool IsMPUSBPRNPort(const char* /*port*/)
{
    return false;
}

bool IsWin9x(bool& /*win9x*/)
{
    return false;
}

void assertionFailed(const char* source, unsigned line, const char* expression)
{
    std::fprintf(stderr, "%s:%u: failed assertion `%s'\n", source, line, expression);
    std::abort();
}
