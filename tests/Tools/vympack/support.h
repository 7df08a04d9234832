// SPDX-License-Identifier: MIT
// Helpers of the package maker's tests: files by their bytes, and a small language for descriptions
// and containers.
#pragma once
#include "Tools/vympack/ContainerFormat.h"
#include "Tools/vympack/Defect.h"
#include "tests/support/TempFolder.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace vympack_test {

inline std::string replaced(std::string text, const std::string& from, const std::string& to)
{
    const auto at = text.find(from);
    EXPECT_NE(at, std::string::npos) << from;
    return at == std::string::npos ? text : text.replace(at, from.size(), to);
}

// A description without a defect, for a package that holds main.bin.
inline std::string goodDescription()
{
    return "TGMNAME \"Model 100\"\r\nMODELNAME \"Model 100\"\r\nDRIVERNAME \"Model 100\"\r\n"
           "PORT USB\r\nPORTNO 48350\r\nENTERTIME 5\r\nEXITTIME 5\r\nUPDATETIME 30\r\n"
           "ALLOWVERSIONDOWN BOTH\r\nPLATFORMVERSION MACOS=0\r\n"
           "VERSION MAIN=AB010203 main.bin MAIN.BIN COMPATIBLE=AB010100 DISPVER=1.2.3\r\n"
           "DEVICEIDMODELNAME \"Model 100\"\r\n";
}

inline std::string little(std::uint32_t value)
{
    unsigned char bytes[4];
    vympack::putLittleEndian(bytes, value);
    return {std::begin(bytes), std::end(bytes)};
}

inline std::string entry(std::string name, std::uint32_t offset, std::uint32_t size)
{
    name.resize(vympack::kNameSize, '\0');
    return name + little(offset) + little(size);
}

inline std::string trailer(std::uint32_t tableOffset, std::uint32_t count)
{
    return little(tableOffset) + little(count) + std::string(vympack::kMagic);
}

using Files = std::vector<std::pair<std::string, std::string>>;

// Data back to back, the table, the trailer: the layout that make must write.
inline std::string container(const Files& files)
{
    std::string data;
    std::string table;
    for (const auto& [name, bytes] : files) {
        table += entry(name, static_cast<std::uint32_t>(data.size()),
                       static_cast<std::uint32_t>(bytes.size()));
        data += bytes;
    }
    return data + table
        + trailer(static_cast<std::uint32_t>(data.size()),
                  static_cast<std::uint32_t>(files.size()));
}

inline Files goodFiles()
{
    return {{"VYMINFO.txt", goodDescription()}, {"main.bin", "firmware"}};
}

// The names of the defects with their severities, "error bad-count".
inline std::set<std::string> namesOf(const vympack::Defects& defects)
{
    std::set<std::string> names;
    for (const auto& defect : defects.kept())
        names.insert((defect.kind.severity == vympack::Severity::error ? "error " : "warning ")
                     + std::string(defect.kind.name));
    return names;
}

} // namespace vympack_test
