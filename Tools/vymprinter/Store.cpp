// SPDX-License-Identifier: MIT
#include "Tools/vymprinter/Store.h"

#include <algorithm>
#include <cstdio>
#include <iostream>

namespace vymprinter {
namespace {

constexpr const char* kTranscriptName = "transcript.txt";
constexpr const char* kColumns =
    "ms\tdirection\tcommand\tname\tkind\tstart\tend\tn\tverdict\tconnection\n";
// An endless fault must not fill the disk.
constexpr std::size_t kLongestTranscript = 64U << 20;
constexpr std::string_view kTranscriptFull = "the transcript is full; nothing more is noted\n";

bool isSafe(char letter)
{
    return (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z')
        || (letter >= 'a' && letter <= 'z') || letter == '.' || letter == '_' || letter == '-';
}

std::string hex(std::uint16_t value)
{
    char text[8] = {};
    std::snprintf(text, sizeof text, "0x%04X", unsigned{value});
    return text;
}

std::string lineOf(const PacketNote& note)
{
    constexpr char kTab = '\t';
    return std::to_string(note.at.count()) + kTab + (note.direction == Direction::in ? "in" : "out")
        + kTab + hex(note.command) + kTab + printable(note.name) + kTab + hex(note.kind) + kTab
        + std::to_string(note.start) + kTab + std::to_string(note.end) + kTab
        + std::to_string(note.count) + kTab + note.verdict + kTab + std::to_string(note.connection)
        + '\n';
}

} // namespace

std::string safeFileName(const std::string& name)
{
    auto safe = name;
    std::replace_if(
        safe.begin(), safe.end(), [](char letter) { return !isSafe(letter); }, '_');
    if (safe.empty())
        return "unnamed";
    if (safe.front() == '.')
        safe.front() = '_';
    return safe == kTranscriptName ? "_" + safe : safe;
}

Store::Store(std::string label, std::optional<std::filesystem::path> folder, bool quiet)
    : m_label(std::move(label)), m_folder(std::move(folder)), m_quiet(quiet)
{
    if (!m_folder)
        return;
    std::error_code failure;
    std::filesystem::create_directories(*m_folder, failure);
    m_transcript.open(*m_folder / kTranscriptName, std::ios::binary | std::ios::trunc);
    if (!(m_transcript << kColumns << std::flush))
        m_error = "cannot write into the folder " + m_folder->string()
            + "; name another one with --store";
}

Store::~Store()
{
    abandonFirmware();
}

void Store::packet(const PacketNote& note)
{
    if (!m_transcript.is_open() || m_transcriptSize > kLongestTranscript)
        return;
    const auto line = lineOf(note);
    m_transcriptSize += line.size();
    m_transcript << line;
    if (m_transcriptSize > kLongestTranscript)
        m_transcript << kTranscriptFull;
    m_transcript.flush();
}

void Store::remark(const std::string& sentence)
{
    if (!m_quiet)
        std::cerr << m_label << ": " << sentence << '\n';
}

bool Store::beginFirmware(const std::string& name)
{
    if (!m_folder)
        return true;
    m_finalPath = *m_folder / safeFileName(name);
    m_partPath = *m_folder / ('.' + safeFileName(name) + ".part");
    m_part.clear();
    m_part.open(m_partPath, std::ios::binary | std::ios::trunc);
    return m_part.is_open();
}

bool Store::appendFirmware(ByteView data)
{
    if (!m_folder)
        return true;
    m_part.write(reinterpret_cast<const char*>(data.data()),
                 static_cast<std::streamsize>(data.size()));
    return m_part.good();
}

bool Store::commitFirmware()
{
    if (!m_folder)
        return true;
    m_part.close();
    std::error_code failure;
    if (m_part.good())
        std::filesystem::rename(m_partPath, m_finalPath, failure);
    const bool kept = m_part.good() && !failure;
    if (kept)
        m_partPath.clear();
    abandonFirmware();
    return kept;
}

void Store::abandonFirmware()
{
    if (m_partPath.empty())
        return;
    m_part.close();
    std::error_code ignored; // a part that cannot be removed stays
    std::filesystem::remove(m_partPath, ignored);
    m_partPath.clear();
}

} // namespace vymprinter
