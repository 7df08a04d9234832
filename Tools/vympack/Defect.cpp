// SPDX-License-Identifier: MIT
#include "Tools/vympack/Defect.h"

#include <utility>

namespace vympack {

void Defects::add(DefectKind kind, Place place, std::string message, std::string instead)
{
    ++(kind.severity == Severity::error ? m_errors : m_warnings);
    if (m_perKind[kind.name]++ < kKeptPerKind)
        m_kept.push_back({kind, std::move(place), std::move(message), std::move(instead)});
}

} // namespace vympack
