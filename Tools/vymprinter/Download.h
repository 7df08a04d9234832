// SPDX-License-Identifier: MIT
// Receives one firmware: checks that its pieces are in order, that they agree with the first one's
// announcements, and that every checksum is right.
//
// Owns:      the state of the arriving firmware; its bytes go to the record at once.
// Threads:   none of its own; a PrinterSession embeds one.
// Invariant: while receiving(), m_received <= m_end and the record has a firmware open.
#pragma once
#include "Tools/vymprinter/PrinterRecord.h"

namespace vymprinter {

struct Verdict {
    std::uint16_t status = status::kDone;
    std::string text = "ok";
};

class Download {
public:
    explicit Download(PrinterRecord& record) : m_record(record) { }

    // Takes a send-file request, whose form must be right; a refusal ends the firmware.
    Verdict accept(const Request& piece);
    // Drops an incomplete firmware.
    void abandon();

    [[nodiscard]] bool receiving() const { return m_receiving; }
    // The last firmware that was received completely and correctly.
    struct Finished {
        std::string name;
        std::uint32_t size = 0;
    };
    [[nodiscard]] const std::optional<Finished>& finished() const { return m_finished; }

private:
    [[nodiscard]] std::string_view defect(const Request& piece) const;
    [[nodiscard]] std::string_view orderDefect(const Request& piece) const;
    [[nodiscard]] bool checksumIsRight(const Request& piece) const;
    [[nodiscard]] bool keep(const Request& piece);

    PrinterRecord& m_record;
    bool m_receiving = false;
    std::string m_name;
    std::uint32_t m_end = 0;
    std::uint32_t m_received = 0;
    std::uint16_t m_sum = 0; // of the bytes received
    std::optional<Finished> m_finished;
};

} // namespace vymprinter
