// SPDX-License-Identifier: MIT
// Folders for the tests of bundles: a good package, programs that say how they were started, and
// Debian packages by their first bytes.
//
// Owns:    the temporary folder.
// Threads: one.
#pragma once
#include "tests/Tools/vympack/support.h"

#include <sys/stat.h>

namespace vympack_test {

inline const std::string kDebBytes = "!<arch>\ndebian-binary   rest";

class BundleDesk {
public:
    BundleDesk()
    {
        make("programs");
        make("debs");
        package("VYMBINDDATA", container(goodFiles()));
        program("vymkit", "echo wizard \"$1\"; exit ${WIZARD_CODE:-0}");
        program("vymkit-cli", "echo command line");
        m_folder.write("programs/MainWindow.ui", "<ui/>");
        for (const char* name : {"vymkit_1.0_amd64.deb", "vymkit-cli_1.0_amd64.deb"})
            m_folder.write(std::string("debs/") + name, kDebBytes);
    }

    [[nodiscard]] const TempFolder& folder() const { return m_folder; }
    [[nodiscard]] std::string path(const std::string& name) const { return m_folder / name; }
    std::string package(const std::string& name, const std::string& bytes) const
    {
        return m_folder.write(name, bytes);
    }
    void make(const std::string& name) const { std::filesystem::create_directory(path(name)); }
    void program(const std::string& name, const std::string& script) const
    {
        const auto file = m_folder.write("programs/" + name, "#!/bin/sh\n" + script + "\n");
        ::chmod(file.c_str(), 0755);
    }
    [[nodiscard]] std::set<std::string> names(const std::string& name) const
    {
        std::set<std::string> all;
        for (const auto& item : std::filesystem::directory_iterator(path(name)))
            all.insert(item.path().filename());
        return all;
    }

private:
    TempFolder m_folder;
};

} // namespace vympack_test
