// SPDX-License-Identifier: MIT
#include "Tools/vympack/DescriptionBytes.h"

#include "Tools/vympack/DefectKinds.h"

namespace vympack {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

// A kind of bad byte: only the first is reported, with the number of all.
struct Finding {
    DefectKind kind;
    const char* what;
    const char* advice;
    std::size_t count = 0;
    Place first = {};
};

struct Findings {
    Finding lineFeed{defect::kBareLineFeed, "line feed without a carriage return",
                     "it joins two rows to one; end every row in CR LF"};
    Finding carriageReturn{defect::kBareCarriageReturn, "carriage return without a line feed",
                           "it joins two rows to one; end every row in CR LF"};
    Finding nul{defect::kNulByte, "NUL byte", "readers do not see the row after it; remove it"};
};

void report(const Finding& finding, Defects& defects)
{
    if (finding.count == 0)
        return;
    const auto number =
        finding.count == 1 ? "a " : std::to_string(finding.count) + " times, here first: a ";
    defects.add(finding.kind, finding.first,
                number + std::string(finding.what) + ": " + finding.advice);
}

// Copies the bytes, completes row ends and records defects.
class Repair {
public:
    Repair(std::string_view text, Place place) : m_text(text), m_place(std::move(place))
    {
        m_place.row = 1;
        m_out.reserve(text.size());
    }

    std::string run(Defects& defects)
    {
        for (std::size_t i = 0; i < m_text.size(); ++i)
            take(i);
        for (const auto* finding :
             {&m_findings.nul, &m_findings.lineFeed, &m_findings.carriageReturn})
            report(*finding, defects);
        return std::move(m_out);
    }

private:
    void take(std::size_t i)
    {
        const char c = m_text[i];
        const bool whole = c == '\r' && i + 1 < m_text.size() && m_text[i + 1] == '\n';
        if (whole)
            return; // its line feed ends the row
        if (c == '\n' && (i == 0 || m_text[i - 1] != '\r'))
            note(m_findings.lineFeed, i);
        else if (c == '\r')
            note(m_findings.carriageReturn, i);
        else if (c == '\0')
            note(m_findings.nul, i);
        if (c == '\n' || c == '\r')
            endRow(i);
        else
            m_out += c;
    }

    void note(Finding& finding, std::size_t i)
    {
        if (finding.count++ > 0)
            return;
        finding.first = m_place;
        finding.first.column = i - m_rowStart + 1;
    }

    void endRow(std::size_t i)
    {
        m_out += "\r\n";
        ++m_place.row;
        m_rowStart = i + 1;
    }

    std::string_view m_text;
    std::string m_out;
    Place m_place;
    std::size_t m_rowStart = 0;
    Findings m_findings;
};

Place atStart(Place place)
{
    place.row = 1;
    place.column = 1;
    return place;
}

} // namespace

std::optional<std::string> checkBytes(std::string_view text, const Place& place, Defects& defects)
{
    if (text.starts_with(kUtf16LittleMark) || text.starts_with(kUtf16BigMark)) {
        defects.add(defect::kByteOrderMark, atStart(place),
                    "the text is in 16-bit characters: save it as plain text or as UTF-8 without"
                    " a byte-order mark");
        return std::nullopt;
    }
    if (text.starts_with(kUtf8Mark)) {
        defects.add(defect::kByteOrderMark, atStart(place),
                    "a byte-order mark hides the first row from its readers: save the text"
                    " without one");
        text.remove_prefix(kUtf8Mark.size());
    }
    return Repair(text, place).run(defects);
}

} // namespace vympack
