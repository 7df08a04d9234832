// SPDX-License-Identifier: MIT
// Any bytes as the package container. Compares the results of vymBindInfo with a reading of the
// same bytes in memory, for names and ranges that come from the bytes themselves.
#include "fuzz/MemoryContainer.h"

#include <cstring>
#include <limits>
#include <optional>
#include <vector>

namespace {

constexpr std::size_t kTrailer = 16;
constexpr std::size_t kEntry = 40;
constexpr std::size_t kName = 32;
constexpr std::size_t kNamesTried = 4; // keeps each input fast; the fuzzer moves entries around
constexpr unsigned long kUntouched = 77;

struct Entry {
    std::string name;
    std::uint64_t offset;
    std::uint64_t size;
};

std::uint32_t number(std::string_view bytes, std::size_t at)
{
    std::uint32_t value = 0;
    for (std::size_t i = 4; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[at + i]);
    return value;
}

// The entries that lie entirely in the bytes; empty if the trailer is not a container's.
std::optional<std::vector<Entry>> tableOf(std::string_view bytes)
{
    if (bytes.size() < kTrailer || !bytes.ends_with(std::string_view("VYMBIND\0", 8)))
        return std::nullopt;
    const auto trailer = bytes.size() - kTrailer;
    const auto count = static_cast<std::int32_t>(number(bytes, trailer + 4));
    std::vector<Entry> table;
    std::uint64_t at = number(bytes, trailer);
    for (std::int32_t i = 0; i < count && at + kEntry <= bytes.size(); ++i, at += kEntry) {
        const auto name = bytes.substr(at, kName);
        table.push_back({std::string(name.substr(0, name.find('\0'))), number(bytes, at + kName),
                         number(bytes, at + kName + 4)});
    }
    return table;
}

const Entry* firstOf(const std::vector<Entry>& table, const std::string& name)
{
    const auto found = std::find_if(table.begin(), table.end(),
                                    [&](const Entry& entry) { return entry.name == name; });
    return found != table.end() ? &*found : nullptr;
}

void checkStretch(const vymBindInfo& container, std::string_view bytes, const Entry& entry,
                  unsigned long position, unsigned long wanted)
{
    const auto left = position < entry.size ? entry.size - position : 0;
    const auto length = std::min<std::uint64_t>(wanted, left);
    const auto from =
        std::min<std::uint64_t>(entry.offset + (left > 0 ? position : 0), bytes.size());
    const auto there = bytes.substr(from, length);
    for (const bool every : {false, true}) {
        std::string buffer(wanted, '#');
        auto* out = reinterpret_cast<unsigned char*>(buffer.data());
        unsigned long got = every ? length : wanted;
        const bool answer = every
            ? container.readBytes(entry.offset + (left > 0 ? position : 0), out, length)
            : container.getBindFileData(entry.name.c_str(), position, out, got);
        require(answer == (!every || there.size() == length), "a stretch's answer");
        require(got == length, "a stretch's length is cut to the entry");
        require(buffer.starts_with(there), "a stretch's bytes");
        require(buffer.find_first_not_of('#', there.size()) == std::string::npos,
                "nothing is written after a stretch");
    }
}

void checkName(const vymBindInfo& container, std::string_view bytes,
               const std::vector<Entry>& table, const std::string& name)
{
    const auto* entry = firstOf(table, name);
    unsigned long offset = kUntouched;
    unsigned long size = kUntouched;
    require(container.getBindMngData(name.c_str(), offset, size) == (entry != nullptr), "found");
    require(offset == (entry != nullptr ? entry->offset : kUntouched), "the entry's offset");
    require(size == (entry != nullptr ? entry->size : kUntouched), "the entry's size");
    require(container.getBindFileSize(name.c_str(), size) == (entry != nullptr), "has a size");
    require(size == (entry != nullptr ? entry->size : 0), "the file's size");
    require(container.holdsEveryByte(name.c_str())
                == (entry != nullptr && entry->offset + entry->size <= bytes.size()),
            "holds every byte");
    if (entry == nullptr)
        return;
    constexpr auto kFarthest = std::numeric_limits<unsigned long>::max();
    for (const unsigned long position : {0UL, entry->size / 2, entry->size, kFarthest}) {
        for (const unsigned long wanted : {1UL, bytes.size() + 1})
            checkStretch(container, bytes, *entry, position, wanted);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const MemoryContainer memory;
    const auto bytes = asText(data, size);
    auto& container = memory.open(bytes);
    const auto table = tableOf(bytes);
    const auto count = table ? static_cast<std::int32_t>(number(bytes, size - kTrailer + 4)) : 0;
    require(container.IsBindVymFile() == (count > 1), "open with more than one entry");
    if (!table) {
        unsigned long length = 1;
        unsigned char byte = 0;
        require(!container.getBindFileSize("VYMINFO.txt", length), "a closed one has no sizes");
        require(!container.readBytes(0, &byte, length), "nor bytes");
        require(!container.holdsEveryByte("VYMINFO.txt"), "nor files");
        return 0;
    }
    checkName(container, bytes, *table, "VYMINFO.txt");
    checkName(container, bytes, *table, std::string(bytes.substr(0, bytes.find('\0'))));
    for (std::size_t i = 0; i < std::min(table->size(), kNamesTried); ++i)
        checkName(container, bytes, *table, (*table)[i].name);
    return 0;
}
