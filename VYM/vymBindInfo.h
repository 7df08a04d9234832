// The update package: one read-only container file, "VYMBINDDATA", that holds every file of an
// update under a short name. Opened once, checked by its trailer, then asked by name for sizes and
// stretches of bytes. Never writes, never reopens: a file that is put in its place does not disturb
// a run. Where the file itself is written over, readSealed delivers the bytes that were there when
// it was sealed, or none.
//
// Owns:    the open stream, a copy of the trailer, the seal, and the places of files that were
// looked
//          up together.
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
    // The one instance, built on the first call, open or closed by what the container is worth;
    // null where memory cannot hold it.
    static vymBindInfo* Instance();
    ~vymBindInfo();
    vymBindInfo(const vymBindInfo&) = delete;
    vymBindInfo& operator=(const vymBindInfo&) = delete;

    // Open, and with more than one entry: a container with a single file counts as none.
    [[nodiscard]] bool IsBindVymFile() const;
    void CloseVymFile(); // for good

    bool getBindFileSize(const char* name, unsigned long& size) const; // size 0 when false
    // Reads from a position inside the embedded file. length: in, bytes wanted; out, cut to what
    // the file's table entry promises. True with length as cut even where the container ends
    // earlier than its table promises: what is sent to a printer is read with readBytes.
    bool getBindFileData(const char* name, unsigned long position, unsigned char* buffer,
                         unsigned long& length) const;
    // The table's entry. The first of a name wins; outputs are untouched when there is none. A
    // closed container stops the process: ask IsBindVymFile first.
    bool getBindMngData(const char* name, unsigned long& offset, unsigned long& size) const;
    // Looks up files in one walk over the table and keeps the answers for later questions. Where a
    // table promises more entries than the file holds, a walk for each name would take minutes.
    void lookUp(std::span<const std::string> names);

    // Reads from a place in the container, such as getBindMngData gives: who reads a file piece by
    // piece looks it up once. True only when every byte was read.
    bool readBytes(std::uint64_t offset, unsigned char* buffer, unsigned long length) const;
    // Whether all bytes of an embedded file really lie inside the container, now.
    [[nodiscard]] bool holdsEveryByte(const char* name) const;
    [[nodiscard]] unsigned long containerSize() const; // 0 where it cannot be had

    // Remembers what the container holds now, as ContainerSeal::take does; without a watch, a seal
    // that is there stays. False for a closed container, too.
    bool seal(const ContainerSeal::Watch& watch = {});
    [[nodiscard]] bool isSealed() const { return m_seal.isTaken(); }
    // As readBytes, and false where the bytes are not those that were sealed. Seals first, where
    // that has not been done.
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
    // Hands over the table's entries, 40 bytes each, until visit returns true; whether it did.
    template <class Visitor> bool visitEntries(const Visitor& visit) const;
    bool readAt(std::uint64_t offset, void* buffer, std::size_t length, std::size_t& got) const;

    std::FILE* m_fp = nullptr;
    Trailer m_trailer{};
    // Of the names that were looked up together; empty for one that the table does not have.
    std::unordered_map<std::string, std::optional<Place>> m_places;
    ContainerSeal m_seal;
    bool m_located = false; // the bundle's folder was found and the path built

    static vymBindInfo* _instance;
    static vymBindInfoKiller _killer;
};
