#include "Tools/vympack/Defect.h"

#include <utility>

namespace vympack {

void Defects::add(DefectKind kind, Place place, std::string message)
{
    ++(kind.severity == Severity::error ? m_errors : m_warnings);
    if (m_perKind[kind.name]++ < kKeptPerKind)
        m_kept.push_back({kind, std::move(place), std::move(message)});
}

} // namespace vympack
