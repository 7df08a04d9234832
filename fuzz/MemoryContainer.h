// SPDX-License-Identifier: MIT
// Offers any bytes as the package container that the engine opens: its folder links to memory.
//
// Owns:    the folder, which is deleted when the process ends without a finding.
// Threads: none of its own.
#pragma once
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"
#include "fuzz/MemoryFile.h"
#include "tests/support/TempFolder.h"

class MemoryContainer {
public:
    MemoryContainer()
    {
        std::filesystem::create_symlink(m_file.path(), m_folder / "VYMBINDDATA");
        setBundleLocation(m_folder.path().c_str());
    }
    vymBindInfo& open(std::string_view bytes) const
    {
        delete vymBindInfo::Instance();
        m_file.write(bytes);
        return *vymBindInfo::Instance();
    }
    [[nodiscard]] const MemoryFile& file() const { return m_file; }
    [[nodiscard]] std::string folder() const { return m_folder.path().string(); }

private:
    TempFolder m_folder;
    MemoryFile m_file;
};
