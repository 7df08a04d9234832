// SPDX-License-Identifier: MIT
#include "tests/support/Package.h"

#include "UI/vymParseController.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"

namespace {

void appendNumber(std::string& bytes, std::uint32_t value)
{
    for (int shift = 0; shift < 32; shift += 8)
        bytes += static_cast<char>(value >> shift & 0xFF);
}

} // namespace

std::string rows(std::initializer_list<std::string_view> texts)
{
    std::string all;
    for (const auto text : texts)
        all.append(text).append("\r\n");
    return all;
}

Package& Package::file(std::string name, std::string bytes)
{
    entry(std::move(name), static_cast<std::uint32_t>(m_data.size()),
          static_cast<std::uint32_t>(bytes.size()));
    m_data += bytes;
    return *this;
}

Package& Package::description(std::initializer_list<std::string_view> texts)
{
    return file("VYMINFO.txt", rows(texts));
}

Package& Package::magic(std::string_view bytes)
{
    m_magic = bytes;
    return *this;
}

Package& Package::count(std::uint32_t entries)
{
    m_count = entries;
    return *this;
}

Package& Package::tableOffset(std::uint32_t offset)
{
    m_tableOffset = offset;
    return *this;
}

Package& Package::entry(std::string name, std::uint32_t offset, std::uint32_t size)
{
    m_entries.push_back({std::move(name), offset, size});
    return *this;
}

std::string Package::bytes() const
{
    std::string all = m_data;
    for (const auto& entry : m_entries) {
        std::string name = entry.name;
        name.resize(32, '\0');
        all += name;
        appendNumber(all, entry.offset);
        appendNumber(all, entry.size);
    }
    appendNumber(all, m_tableOffset.value_or(static_cast<std::uint32_t>(m_data.size())));
    appendNumber(all, m_count.value_or(static_cast<std::uint32_t>(m_entries.size())));
    return all + m_magic;
}

void Package::openFolder(const std::string& folder)
{
    delete vymBindInfo::Instance();
    setBundleLocation(folder.c_str());
    setBundleFile("");
    g_VymInfo.loadData("", 0, load_vyminfo);
}

void Package::open()
{
    m_folder.write("VYMBINDDATA", bytes());
    openFolder(m_folder.path().string());
    vyminfo_loadfile();
}
