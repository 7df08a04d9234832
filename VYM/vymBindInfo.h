// SPDX-License-Identifier: MIT
// The update package: one read-only container file, "VYMBINDDATA", that holds every file of an
// update under a short name. It is opened once and checked by its trailer; then it gives sizes and
// ranges of bytes by name. Never writes, never reopens: replacing the file does not disturb a run.
// If the file itself is overwritten, readSealed delivers the bytes from the time of sealing, or
// fails.
//
// Owns:    the open stream, a copy of the trailer, the seal, and the offsets of files that were
//          looked up together.
// Threads: one at a time; it has no lock. The window's thread loads the description from it
//          before the update procedure reads images out of it.
#pragma once
#include "VYM/ContainerSeal.h"
#include "VYM/SingletonKiller.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>

class vymBindInfo;
using vymBindInfoKiller = SingletonKiller<vymBindInfo>;

class vymBindInfo {
public:
    // The only instance, constructed by the first call; it is closed if the container is unusable.
    // Null if out of memory.
    static vymBindInfo* Instance();
    ~vymBindInfo();
    vymBindInfo(const vymBindInfo&) = delete;
    vymBindInfo& operator=(const vymBindInfo&) = delete;

    // Open and with more than one entry: a container with a single file does not count.
    [[nodiscard]] bool IsBindVymFile() const;
    void CloseVymFile(); // for good

    bool getBindFileSize(const char* name, unsigned long& size) const; // size 0 when false
    // Reads from a position inside the embedded file. length: in, bytes wanted; out, limited to the
    // size in the file's table entry. True with that length even if the container ends before that:
    // bytes for a printer are read with readBytes.
    bool getBindFileData(const char* name, unsigned long position, unsigned char* buffer,
                         unsigned long& length) const;
    // The table's entry: the first with that name; without one, outputs stay untouched. A closed
    // container stops the process: check IsBindVymFile first.
    bool getBindMngData(const char* name, unsigned long& offset, unsigned long& size) const;
    // Looks up files in one walk over the table and keeps the results for later calls. If a table
    // claims more entries than the file holds, a walk for each name would take minutes.
    void lookUp(std::span<const std::string> names);

    // Reads at an offset in the container, such as that of getBindMngData: a caller that reads a
    // file piece by piece looks it up once. True only if every byte was read.
    bool readBytes(std::uint64_t offset, unsigned char* buffer, unsigned long length) const;
    // Whether all bytes of an embedded file really lie inside the container, now.
    [[nodiscard]] bool holdsEveryByte(const char* name) const;
    [[nodiscard]] unsigned long containerSize() const; // 0 if unknown

    // Remembers the present bytes of the container, see ContainerSeal::take; without a watch, an
    // existing seal stays. False for a closed container, too.
    bool seal(const ContainerSeal::Watch& watch = {});
    [[nodiscard]] bool isSealed() const { return m_seal.isTaken(); }
    // Like readBytes, but false if the bytes have changed since the sealing. Seals first if that
    // has not been done.
    bool readSealed(std::uint64_t offset, unsigned char* buffer, unsigned long length);

private:
    struct Trailer {
        std::uint32_t tableOffset;
        std::int32_t entryCount;
        std::array<char, 8> magic;
    };
    struct Place {
        unsigned long offset;
        unsigned long size;
    };

    vymBindInfo();
    bool readTrailer();
    // Passes the table's entries, 40 bytes each, to visit until that returns true; returns whether
    // it did.
    template <class Visitor> bool visitEntries(const Visitor& visit) const;
    [[nodiscard]] ContainerSeal::Read reader() const;
    bool readAt(std::uint64_t offset, void* buffer, std::size_t length, std::size_t& got) const;

    std::FILE* m_fp = nullptr;
    Trailer m_trailer{};
    // The results of lookUp; empty for a name that the table does not have.
    std::unordered_map<std::string, std::optional<Place>> m_places;
    ContainerSeal m_seal;
    bool m_located = false; // the bundle's folder was found and the path built

    static vymBindInfo* _instance;
    static vymBindInfoKiller _killer;
};
