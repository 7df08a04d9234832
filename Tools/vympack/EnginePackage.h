// Opens a package for the engine in the same way as the programs, whatever the file's name. The
// engine keeps one package until the process ends.
//
// Owns:    a folder with a link, if the file's own name or place does not suffice; the destructor
//          removes it.
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
    EnginePackage(const EnginePackage&) = delete;
    EnginePackage& operator=(const EnginePackage&) = delete;
    ~EnginePackage();

    // Null if an update would be refused before a search for printers; problem() says why.
    [[nodiscard]] const PackageFacts* facts() const { return m_facts ? &*m_facts : nullptr; }
    [[nodiscard]] const std::string& problem() const { return m_problem; }

private:
    std::string m_folder; // the folder with the link, or empty
    std::optional<PackageFacts> m_facts;
    std::string m_problem;
};

} // namespace vympack
