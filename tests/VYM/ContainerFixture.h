// SPDX-License-Identifier: MIT
// A container in the test's own folder, opened in the same way as by the engine, and short calls
// for reading it.
#pragma once
#include "VYM/vymBindInfo.h"
#include "tests/support/Package.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

inline constexpr unsigned long kUntouched = 77;
inline const std::string kInfo = "MODELNAME X\r\n";

inline vymBindInfo& container()
{
    return *vymBindInfo::Instance();
}

// Makes the engine open exactly this file as its container.
inline vymBindInfo& openBytes(const TempFolder& folder, std::string_view bytes)
{
    folder.write("VYMBINDDATA", bytes);
    Package::openFolder(folder.path().string());
    return container();
}

class TwoFiles : public Package {
public:
    TwoFiles() { file("main.bin", imageBytes(100)).file("VYMINFO.txt", kInfo); }
};

// The first bytes of an embedded file, up to a limit; false if some of them are missing.
inline bool readWhole(const char* name, unsigned char* buffer, unsigned long length)
{
    unsigned long offset = 0;
    unsigned long size = 0;
    return container().getBindMngData(name, offset, size)
        && container().readBytes(offset, buffer, std::min(length, size));
}

struct Data {
    bool result;
    unsigned long length;
    std::string bytes;
};

inline Data read(const char* name, unsigned long position, unsigned long wanted)
{
    std::string buffer(std::min(wanted, 4096UL), '#');
    unsigned long length = wanted;
    const bool result = container().getBindFileData(
        name, position, reinterpret_cast<unsigned char*>(buffer.data()), length);
    return {result, length, buffer.substr(0, length)};
}

inline unsigned long sizeOf(const char* name)
{
    unsigned long size = kUntouched;
    return container().getBindFileSize(name, size) ? size : kUntouched;
}

// Checks that a closed container has no files.
inline void expectClosed()
{
    unsigned long size = kUntouched;
    EXPECT_FALSE(container().IsBindVymFile());
    EXPECT_FALSE(container().getBindFileSize("VYMINFO.txt", size));
    EXPECT_EQ(size, kUntouched);
    EXPECT_FALSE(read("VYMINFO.txt", 0, 10).result);
    EXPECT_FALSE(container().holdsEveryByte("VYMINFO.txt"));
}

class Container : public testing::Test {
protected:
    ~Container() override { delete vymBindInfo::Instance(); }
    void open(const Package& package) { openBytes(m_folder, package.bytes()); }
    TempFolder m_folder;
};
