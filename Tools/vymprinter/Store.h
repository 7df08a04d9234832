// SPDX-License-Identifier: MIT
// Stores the data of one printer in a folder: each complete firmware under its name, and
// "transcript.txt" with a line for every packet. Without a folder it stores nothing. Remarks for
// the user go to standard error, except in quiet mode.
//
// Owns:      the transcript's stream and the file of the arriving firmware.
// Threads:   one.
// Invariant: a file with a firmware's name is complete; a partial file has a name that begins with
//            a dot, and is removed when the firmware is abandoned.
#pragma once
#include "Tools/vymprinter/PrinterRecord.h"

#include <filesystem>
#include <fstream>

namespace vymprinter {

// Turns a name from the wire into a file name: letters, digits, '.', '_' and '-', never hidden,
// never empty, never that of the transcript.
[[nodiscard]] std::string safeFileName(const std::string& name);

class Store final : public PrinterRecord {
public:
    // `label` names the printer in remarks. Creates the folder and an empty transcript.
    Store(std::string label, std::optional<std::filesystem::path> folder, bool quiet);
    ~Store() override;
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;

    // Why the folder cannot be written to; empty if it can, or if there is no folder.
    [[nodiscard]] const std::string& error() const { return m_error; }

    [[nodiscard]] const std::string& label() const { return m_label; }

    void packet(const PacketNote& note) override;
    void remark(const std::string& sentence) override;
    [[nodiscard]] bool beginFirmware(const std::string& name) override;
    [[nodiscard]] bool appendFirmware(ByteView data) override;
    [[nodiscard]] bool commitFirmware() override;
    void abandonFirmware() override;

private:
    std::string m_label;
    std::optional<std::filesystem::path> m_folder;
    bool m_quiet;
    std::string m_error;
    std::ofstream m_transcript;
    std::size_t m_transcriptSize = 0;
    std::ofstream m_part;
    std::filesystem::path m_partPath; // empty while no firmware is arriving
    std::filesystem::path m_finalPath;
};

} // namespace vymprinter
