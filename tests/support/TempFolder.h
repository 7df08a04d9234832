// SPDX-License-Identifier: MIT
// A folder for one test, deleted with its content when the test ends.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>

class TempFolder {
public:
    TempFolder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "vymkit-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr)
            throw std::runtime_error("no temporary folder");
        m_path = name;
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }
    [[nodiscard]] std::string operator/(std::string_view name) const
    {
        return (m_path / name).string();
    }
    // Where the file is now.
    std::string write(std::string_view name, std::string_view bytes) const
    {
        const auto place = m_path / name;
        std::ofstream file(place, std::ios::binary);
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        if (!file)
            throw std::runtime_error("cannot write a test file");
        return place.string();
    }
    // The names of its files and folders.
    [[nodiscard]] std::set<std::string> names() const
    {
        std::set<std::string> all;
        for (const auto& item : std::filesystem::directory_iterator(m_path))
            all.insert(item.path().filename());
        return all;
    }

private:
    std::filesystem::path m_path;
};

inline std::string readFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}
