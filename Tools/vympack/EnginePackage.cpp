// SPDX-License-Identifier: MIT
#include "Tools/vympack/EnginePackage.h"

namespace vympack {

EnginePackage::EnginePackage(const std::string& path)
{
    auto opened = openPackage(std::optional<std::string>(path));
    m_facts = std::move(opened.package);
    m_problem = std::move(opened.problem);
    if (m_facts && !(m_problem = unfitForUpdate(*m_facts)).empty())
        m_facts.reset();
}

} // namespace vympack
