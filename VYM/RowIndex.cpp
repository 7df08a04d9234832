// SPDX-License-Identifier: MIT
#include "VYM/RowIndex.h"

#include "VYM/DescriptionText.h"

#include <algorithm>
#include <cassert>

namespace {

std::size_t offsetIn(std::string_view text, std::string_view row)
{
    return static_cast<std::size_t>(row.data() - text.data());
}

} // namespace

void RowIndex::build(std::string_view text)
{
    m_places = {};
    m_isBuilt = true;
    description::Rows rows(text);
    std::string_view row;
    for (auto missing = kKeys.size(); missing != 0 && rows.next(row);) {
        for (std::size_t key = 0; !row.empty() && key < kKeys.size(); ++key) {
            auto& place = m_places[key];
            if (place.first != std::string_view::npos || !description::belongsTo(row, kKeys[key]))
                continue;
            place.first = place.at = offsetIn(text, row);
            --missing;
        }
    }
}

std::string_view RowIndex::find(std::string_view text, std::string_view key, unsigned index)
{
    const auto* known = std::find_if(kKeys.begin(), kKeys.end(), [key](std::string_view each) {
        return description::equalNoCase(each, key);
    });
    if (known == kKeys.end())
        return description::findRow(text, key, index);
    if (!m_isBuilt)
        build(text);
    auto& place = m_places[static_cast<std::size_t>(known - kKeys.begin())];
    if (place.first == std::string_view::npos)
        return {};
    if (index < place.index)
        place = {place.first, place.first, 0};
    // The same text as in the call that built the index.
    assert(place.at < text.size() && description::belongsTo(text.substr(place.at), key));
    description::RowsOfKey rows(text.substr(place.at), key);
    std::string_view row;
    for (auto counted = place.index; rows.next(row); ++counted) {
        if (counted == index) {
            place.at = offsetIn(text, row);
            place.index = index;
            return row;
        }
    }
    return {};
}
