// SPDX-License-Identifier: MIT
#include "Tools/vympack/Container.h"

#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/DefectKinds.h"

#include <algorithm>
#include <cstring>

namespace vympack {

namespace {

Place at(const std::string& path, std::uint64_t offset)
{
    return {path, {}, offset};
}

struct Trailer {
    std::uint64_t place = 0;
    std::uint32_t tableOffset = 0;
    std::int32_t count = 0;
};

std::optional<Trailer> readTrailer(const InputFile& file, const std::string& path, Defects& defects)
{
    TrailerBytes bytes{};
    if (file.size() < bytes.size()) {
        defects.add(defect::kBadTrailer, at(path, 0),
                    "the file is shorter than the 16 bytes of a trailer: it is no package, or it"
                    " was cut off; make it again");
        return std::nullopt;
    }
    const auto place = file.size() - bytes.size();
    if (!file.readAt(place, bytes.data(), bytes.size())
        || std::memcmp(bytes.data() + kMagicInTrailer, kMagic.data(), kMagic.size()) != 0) {
        defects.add(defect::kBadTrailer, at(path, place + kMagicInTrailer),
                    "the file does not end in \"VYMBIND\" and a NUL: it is no package, or it was"
                    " cut off; make it again");
        return std::nullopt;
    }
    return Trailer{place, littleEndian(bytes.data()),
                   static_cast<std::int32_t>(littleEndian(bytes.data() + kCountInTrailer))};
}

bool checkTrailer(const Trailer& trailer, const std::string& path, Defects& defects)
{
    const auto mostThatFit = trailer.place / kEntrySize;
    const auto countPlace = at(path, trailer.place + kCountInTrailer);
    const auto count = std::to_string(trailer.count);
    if (trailer.count <= 0) {
        defects.add(defect::kBadCount, countPlace,
                    "the trailer counts " + count + " files: make the package again");
        return false;
    }
    const auto entries = static_cast<std::uint64_t>(trailer.count);
    if (entries > mostThatFit || entries > kMostEntries) {
        defects.add(defect::kBadCount, countPlace,
                    "the trailer counts " + count + " files, of which at most "
                        + std::to_string(std::min<std::uint64_t>(mostThatFit, kMostEntries))
                        + " can be: make the package again");
        return false;
    }
    if (trailer.tableOffset + entries * kEntrySize > trailer.place) {
        defects.add(defect::kTableOutOfBounds, at(path, trailer.place),
                    "the table of " + count + " files at byte "
                        + std::to_string(trailer.tableOffset)
                        + " runs into the trailer or past it: make the package again");
        return false;
    }
    return true;
}

Entry decode(const EntryBytes& bytes, std::uint64_t place)
{
    const auto nameEnd = bytes.begin() + kNameSize;
    const auto nul = std::find(bytes.begin(), nameEnd, 0);
    Entry entry;
    entry.name.assign(bytes.begin(), nul);
    entry.offset = littleEndian(bytes.data() + kOffsetInEntry);
    entry.size = littleEndian(bytes.data() + kSizeInEntry);
    entry.place = place;
    entry.terminated = nul != nameEnd;
    entry.padded = std::all_of(nul, nameEnd, [](unsigned char byte) { return byte == 0; });
    return entry;
}

// A range of the container with one owner; entry is null for table and trailer.
struct Stretch {
    std::uint64_t begin;
    std::uint64_t end;
    const Entry* entry;
    std::string owner;
};

std::vector<Stretch> stretchesOf(const Table& table, const InputFile& file)
{
    const auto trailer = file.size() - kTrailerSize;
    std::vector<Stretch> stretches{
        {table.offset, table.offset + table.entries.size() * kEntrySize, nullptr, "the table"},
        {trailer, file.size(), nullptr, "the trailer"}};
    for (const auto& entry : table.entries) {
        if (entry.size > 0 && isInside(entry, file))
            stretches.push_back({entry.offset, std::uint64_t{entry.offset} + entry.size, &entry,
                                 "\"" + entry.name + "\""});
    }
    return stretches;
}

void checkOverlaps(const Table& table, const InputFile& file, const std::string& path,
                   Defects& defects)
{
    auto stretches = stretchesOf(table, file);
    std::stable_sort(stretches.begin(), stretches.end(),
                     [](const auto& left, const auto& right) { return left.begin < right.begin; });
    const auto* furthest = stretches.data();
    for (const auto& next : stretches) {
        if (&next == furthest)
            continue;
        const auto* owner = next.entry != nullptr ? next.entry : furthest->entry;
        if (next.begin < furthest->end && owner != nullptr)
            defects.add(defect::kEntryOverlap, at(path, owner->place),
                        next.owner + " begins inside " + furthest->owner
                            + ": make the package again");
        if (next.end > furthest->end)
            furthest = &next;
    }
}

void checkEntry(const Entry& entry, const InputFile& file, const std::string& path,
                Defects& defects)
{
    const auto quoted = "\"" + entry.name + "\"";
    if (!entry.terminated)
        defects.add(defect::kNameNotTerminated, at(path, entry.place),
                    "the name " + quoted + " has no closing NUL in its 32 bytes: shorten it to 31");
    else if (!entry.padded)
        defects.add(defect::kNamePadding, at(path, entry.place + entry.name.size()),
                    "bytes other than NUL follow the name " + quoted + ": make the package again");
    if (!isInside(entry, file))
        defects.add(defect::kEntryOutOfBounds, at(path, entry.place + kOffsetInEntry),
                    "the " + std::to_string(entry.size) + " bytes of " + quoted + " at byte "
                        + std::to_string(entry.offset) + " are not all in the file, which has "
                        + std::to_string(file.size()) + ": make the package again");
}

} // namespace

std::optional<Table> readTable(const InputFile& file, const std::string& path, Defects& defects)
{
    const auto trailer = readTrailer(file, path, defects);
    if (!trailer || !checkTrailer(*trailer, path, defects))
        return std::nullopt;
    Table table;
    table.offset = trailer->tableOffset;
    EntryBytes bytes{};
    for (std::int32_t i = 0; i < trailer->count; ++i) {
        const auto place = table.offset + static_cast<std::uint64_t>(i) * kEntrySize;
        if (!file.readAt(place, bytes.data(), bytes.size())) {
            defects.add(defect::kTableOutOfBounds, at(path, place),
                        "the table cannot be read here");
            return std::nullopt;
        }
        table.entries.push_back(decode(bytes, place));
    }
    return table;
}

bool isInside(const Entry& entry, const InputFile& file)
{
    return std::uint64_t{entry.offset} + entry.size <= file.size();
}

void checkEntries(const Table& table, const InputFile& file, const std::string& path,
                  Defects& defects)
{
    if (file.size() > kMostBytes)
        defects.add(defect::kPackageTooLarge, at(path, kMostBytes),
                    "the package is larger than 32-bit positions reach: leave something out");
    for (const auto& entry : table.entries)
        checkEntry(entry, file, path, defects);
    checkOverlaps(table, file, path, defects);
}

} // namespace vympack
