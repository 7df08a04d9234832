// The update package: one read-only container file, "VYMBINDDATA", that holds every file of an
// update under a short name. Opened once, checked by its trailer, then asked by name for sizes and
// stretches of bytes. Never writes, never reopens: the bytes that were looked at first are the
// bytes that are delivered for the whole run.
//
// Owns:    the open stream and a copy of the trailer.
// Threads: one at a time; it has no lock. The window's thread loads the description from it
//          before the update procedure reads images out of it.
#pragma once
#include "VYM/SingletonKiller.h"

#include <array>
#include <cstdint>
#include <cstdio>

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

    // Reads from a place in the container, such as getBindMngData gives: who reads a file piece by
    // piece looks it up once. True only when every byte was read.
    bool readBytes(std::uint64_t offset, unsigned char* buffer, unsigned long length) const;
    // Whether all bytes of an embedded file really lie inside the container, now.
    [[nodiscard]] bool holdsEveryByte(const char* name) const;

private:
    struct Trailer {
        std::uint32_t tableOffset;
        std::int32_t entryCount;
        std::array<char, 8> magic;
    };

    vymBindInfo();
    bool readTrailer();
    bool readAt(std::uint64_t offset, void* buffer, std::size_t length, std::size_t& got) const;

    std::FILE* m_fp = nullptr;
    Trailer m_trailer{};
    bool m_located = false; // the bundle's folder was found and the path built

    static vymBindInfo* _instance;
    static vymBindInfoKiller _killer;
};
