// Places the defects of a description: a spot is a view into the row it belongs to.
//
// Owns:    a copy of the description's place; the defects stay the caller's.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/Defect.h"
#include "Tools/vympack/DescriptionKeys.h"

#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace vympack {

class RowReport {
public:
    RowReport(Place description, Defects& defects)
        : m_place(std::move(description)), m_defects(defects)
    {
    }

    // A defect of the description as a whole.
    void whole(const DefectKind& kind, std::string message) const
    {
        m_defects.add(kind, m_place, std::move(message));
    }
    void at(std::size_t number, std::size_t column, const DefectKind& kind,
            std::string message) const
    {
        auto place = m_place;
        place.row = number;
        place.column = column;
        m_defects.add(kind, std::move(place), std::move(message));
    }
    // At a spot of the row; a spot that is no part of the row, such as an empty value, is its
    // first column.
    void at(const KeyedRow& row, std::string_view spot, const DefectKind& kind,
            std::string message) const
    {
        const auto* begin = row.text.data();
        const bool within = spot.data() != nullptr && !std::less<>()(spot.data(), begin)
            && !std::less<>()(begin + row.text.size(), spot.data());
        at(row.number, within ? static_cast<std::size_t>(spot.data() - begin) + 1 : 1, kind,
           std::move(message));
    }

private:
    Place m_place;
    Defects& m_defects;
};

inline std::string quoted(std::string_view text)
{
    std::string out(1, '"');
    return out.append(text).append(1, '"');
}

} // namespace vympack
