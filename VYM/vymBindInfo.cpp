// SPDX-License-Identifier: MIT
#include "VYM/vymBindInfo.h"

#include "VYM/BundlePath.h"
#include "VYM/vymMac.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <unordered_set>

namespace {

constexpr std::array<char, 8> kMagic = {'V', 'Y', 'M', 'B', 'I', 'N', 'D', '\0'};
constexpr std::size_t kTrailerSize = 16;
constexpr std::size_t kNameSize = 32;
constexpr std::size_t kEntrySize = kNameSize + 8;
// Entries of the first read: all packages in use have fewer, so one look-up is one read. Longer
// tables are read in larger parts.
constexpr std::size_t kEntriesAtFirst = 16;
constexpr std::size_t kEntriesAtOnce = 1024;
// Support identifies broken callers by this line number; it stays even if the line moves.
constexpr unsigned kLookupPlace = 440;

std::uint32_t littleEndian(const unsigned char* bytes)
{
    return static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8
        | static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
}

std::string_view nameOf(const unsigned char* entry)
{
    const auto* text = reinterpret_cast<const char*>(entry);
    return {text, strnlen(text, kNameSize)};
}

} // namespace

vymBindInfo* vymBindInfo::_instance = nullptr;
constinit vymBindInfoKiller vymBindInfo::_killer;

vymBindInfo* vymBindInfo::Instance()
{
    if (_instance == nullptr) {
        try {
            _instance = new vymBindInfo;
        } catch (const std::bad_alloc&) {
            return nullptr;
        }
    }
    return _instance;
}

vymBindInfo::vymBindInfo()
{
    char folder[kBundlePathSize] = {};
    m_located = getBundleLocation(folder, kBundlePathSize);
    if (m_located) {
        const std::string other(bundleFile());
        const auto path = other.empty() ? std::string(folder) + "//VYMBINDDATA" : other;
        if (isPlainFile(path.c_str()))
            fopen_s(&m_fp, path.c_str(), "rb");
    }
    if (m_fp != nullptr && !readTrailer())
        CloseVymFile();
    _killer.set(this);
}

vymBindInfo::~vymBindInfo()
{
    CloseVymFile();
    _killer.set(nullptr);
    _instance = nullptr;
}

void vymBindInfo::CloseVymFile()
{
    if (m_fp != nullptr)
        std::fclose(m_fp);
    m_fp = nullptr;
}

bool vymBindInfo::IsBindVymFile() const
{
    return m_fp != nullptr && m_trailer.entryCount > 1;
}

bool vymBindInfo::readTrailer()
{
    if (std::fseek(m_fp, -static_cast<long>(kTrailerSize), SEEK_END) != 0)
        return false;
    unsigned char bytes[kTrailerSize] = {};
    if (std::fread(bytes, 1, kTrailerSize, m_fp) != kTrailerSize)
        return false;
    m_trailer.tableOffset = littleEndian(bytes);
    m_trailer.entryCount = static_cast<std::int32_t>(littleEndian(bytes + 4));
    std::copy_n(bytes + 8, kMagic.size(), m_trailer.magic.begin());
    return m_trailer.magic == kMagic;
}

// Reads up to length bytes: fewer at the end of the file, false on an error.
bool vymBindInfo::readAt(std::uint64_t offset, void* buffer, std::size_t length,
                         std::size_t& got) const
{
    assert(m_fp != nullptr && (buffer != nullptr || length == 0));
    got = 0;
    while (got < length) {
        const auto count = pread(fileno(m_fp), static_cast<char*>(buffer) + got, length - got,
                                 static_cast<off_t>(offset + got));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            return count == 0;
        got += static_cast<std::size_t>(count);
    }
    return true;
}

template <class Visitor> bool vymBindInfo::visitEntries(const Visitor& visit) const
{
    const std::uint64_t end = m_trailer.entryCount > 0
        ? static_cast<std::uint64_t>(m_trailer.entryCount) * kEntrySize
        : 0;
    unsigned char entries[kEntriesAtOnce * kEntrySize];
    std::uint64_t atOnce = kEntriesAtFirst * kEntrySize;
    for (std::uint64_t at = 0; at < end;) {
        std::size_t got = 0;
        const auto wanted = std::min(end - at, atOnce);
        if (!readAt(m_trailer.tableOffset + at, entries, wanted, got))
            return false;
        for (std::size_t i = 0; i + kEntrySize <= got; i += kEntrySize) {
            if (visit(entries + i))
                return true;
        }
        if (got < wanted)
            return false;
        at += wanted;
        atOnce = sizeof entries;
    }
    return false;
}

unsigned long vymBindInfo::containerSize() const
{
    struct stat status { };
    return m_fp != nullptr && fstat(fileno(m_fp), &status) == 0
        ? static_cast<unsigned long>(status.st_size)
        : 0;
}

bool vymBindInfo::getBindMngData(const char* name, unsigned long& offset, unsigned long& size) const
{
    if (m_fp == nullptr)
        assertionFailed("VYM/vymBindInfo", kLookupPlace, "m_fp != NULL");
    if (name == nullptr)
        return false;
    if (const auto known = m_places.find(name); known != m_places.end()) {
        if (known->second) {
            offset = known->second->offset;
            size = known->second->size;
        }
        return known->second.has_value();
    }
    return visitEntries([&, wanted = std::string_view(name)](const unsigned char* entry) {
        if (nameOf(entry) != wanted)
            return false;
        offset = littleEndian(entry + kNameSize);
        size = littleEndian(entry + kNameSize + 4);
        return true;
    });
}

void vymBindInfo::lookUp(std::span<const std::string> names)
{
    if (m_fp == nullptr)
        return;
    std::unordered_set<std::string_view> missing(names.begin(), names.end());
    for (const auto& name : names)
        m_places[name] = std::nullopt;
    visitEntries([&](const unsigned char* entry) {
        const auto name = nameOf(entry);
        if (missing.erase(name) != 0)
            m_places[std::string(name)] =
                Place{littleEndian(entry + kNameSize), littleEndian(entry + kNameSize + 4)};
        return missing.empty();
    });
}

bool vymBindInfo::getBindFileSize(const char* name, unsigned long& size) const
{
    if (name == nullptr || m_fp == nullptr)
        return false;
    unsigned long offset = 0;
    size = 0;
    return getBindMngData(name, offset, size);
}

bool vymBindInfo::getBindFileData(const char* name, unsigned long position, unsigned char* buffer,
                                  unsigned long& length) const
{
    if (name == nullptr || buffer == nullptr || m_fp == nullptr)
        return false;
    unsigned long offset = 0;
    unsigned long size = 0;
    if (!getBindMngData(name, offset, size))
        return false;
    length = size <= position ? 0 : std::min(length, size - position);
    std::size_t got = 0;
    if (length == 0 || readAt(offset + position, buffer, length, got))
        return true;
    length = 0;
    return false;
}

bool vymBindInfo::readBytes(std::uint64_t offset, unsigned char* buffer, unsigned long length) const
{
    std::size_t got = 0;
    return buffer != nullptr && m_fp != nullptr && readAt(offset, buffer, length, got)
        && got == length;
}

bool vymBindInfo::holdsEveryByte(const char* name) const
{
    unsigned long offset = 0;
    unsigned long size = 0;
    return m_fp != nullptr && getBindMngData(name, offset, size)
        && offset + size <= containerSize();
}

ContainerSeal::Read vymBindInfo::reader() const
{
    return [this](std::uint64_t offset, unsigned char* buffer, unsigned long length) {
        return readBytes(offset, buffer, length);
    };
}

bool vymBindInfo::seal(const ContainerSeal::Watch& watch)
{
    if (m_fp == nullptr)
        return false;
    return (m_seal.isTaken() && !watch) || m_seal.take(containerSize(), reader(), watch);
}

bool vymBindInfo::readSealed(std::uint64_t offset, unsigned char* buffer, unsigned long length)
{
    return buffer != nullptr && seal() && m_seal.read(reader(), offset, buffer, length);
}
