// SPDX-License-Identifier: MIT
// A package opened for the engine, as the programs open it. The engine keeps one package for the
// length of the process.
//
// Owns:    its facts, by value.
// Threads: one, before any worker starts.
#pragma once
#include "UI/Package/PackageFacts.h"

#include <optional>
#include <string>

namespace vympack {

class EnginePackage {
public:
    // The path of a package, or of the folder with VYMBINDDATA.
    explicit EnginePackage(const std::string& path);

    // Null where an update would be refused before a printer is looked for; problem() says why.
    [[nodiscard]] const PackageFacts* facts() const { return m_facts ? &*m_facts : nullptr; }
    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    std::optional<PackageFacts> m_facts;
    std::string m_problem;
};

} // namespace vympack
