// SPDX-License-Identifier: MIT
// Reports defects of a description with their places: a spot is a view into its row.
//
// Owns:    a copy of the description's place; the caller owns the defects.
// Threads: none of its own.
#pragma once
#include "Tools/vympack/Defect.h"
#include "Tools/vympack/DescriptionKeys.h"

#include <cassert>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace vympack {

// The spot's position in the row; empty if it is no part of the row.
inline std::optional<std::size_t> placeIn(std::string_view row, std::string_view spot)
{
    const auto* begin = row.data();
    const bool within = spot.data() != nullptr && !std::less<>()(spot.data(), begin)
        && !std::less<>()(begin + row.size(), spot.data());
    return within ? std::optional(static_cast<std::size_t>(spot.data() - begin)) : std::nullopt;
}

// The row with other text at the spot; empty if the spot is no part of the row.
inline std::string withSpot(std::string_view row, std::string_view spot, std::string_view text)
{
    const auto place = placeIn(row, spot);
    return place ? std::string(row).replace(*place, spot.size(), text) : std::string();
}

// The row without a word and the blanks after it.
inline std::string withoutSpot(std::string_view row, std::string_view spot)
{
    auto out = withSpot(row, spot, "");
    const auto place = placeIn(row, spot).value_or(0);
    while (place < out.size() && (out[place] == ' ' || out[place] == '\t'))
        out.erase(place, 1);
    while (!out.empty() && (out.back() == ' ' || out.back() == '\t'))
        out.pop_back();
    return out;
}

class RowReport {
public:
    RowReport(Place description, Defects& defects)
        : m_place(std::move(description)), m_defects(defects)
    {
    }

    // A defect of the description as a whole.
    void whole(const DefectKind& kind, std::string message, std::string instead = {}) const
    {
        m_defects.add(kind, m_place, std::move(message), std::move(instead));
    }
    // Rows and columns count from 1.
    void at(std::size_t number, std::size_t column, const DefectKind& kind, std::string message,
            std::string instead = {}) const
    {
        assert(number != 0 && column != 0);
        auto place = m_place;
        place.row = number;
        place.column = column;
        m_defects.add(kind, std::move(place), std::move(message), std::move(instead));
    }
    // A defect at a spot of the row; a spot that is no part of the row, such as an empty value,
    // means its first column.
    void at(const KeyedRow& row, std::string_view spot, const DefectKind& kind, std::string message,
            std::string instead = {}) const
    {
        at(row.number, placeIn(row.text, spot).value_or(0) + 1, kind, std::move(message),
           std::move(instead));
    }

private:
    Place m_place;
    Defects& m_defects;
};

inline std::string inQuotes(std::string_view text)
{
    std::string out(1, '"');
    return out.append(text).append(1, '"');
}

} // namespace vympack
