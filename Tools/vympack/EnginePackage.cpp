#include "Tools/vympack/EnginePackage.h"

#include "Tools/vympack/ContainerFormat.h"
#include "UI/Text/PlainText.h"

#include <cstdlib>
#include <filesystem>

namespace vympack {

namespace {

namespace fs = std::filesystem;

// A folder in which the file has the name that the engine expects; empty if it cannot be made.
std::string linkedFolder(const fs::path& file)
{
    std::error_code error;
    auto folder = (fs::temp_directory_path(error) / "vympack-XXXXXX").string();
    const auto target = fs::absolute(file, error);
    if (error || ::mkdtemp(folder.data()) == nullptr)
        return {};
    fs::create_symlink(target, fs::path(folder) / kPackageName, error);
    return folder;
}

// Messages name the user's file, not the link to it.
void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (auto at = text.find(from); at != text.npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
}

} // namespace

EnginePackage::EnginePackage(const std::string& path)
{
    std::error_code error;
    const fs::path file(path);
    std::string folder = path;
    if (!fs::is_directory(file, error)) {
        if (file.filename() == kPackageName)
            folder = file.has_parent_path() ? file.parent_path().string() : ".";
        else
            folder = m_folder = linkedFolder(file);
    }
    auto opened = openPackage(folder);
    m_facts = std::move(opened.package);
    m_problem = std::move(opened.problem);
    if (m_facts && !(m_problem = unfitForUpdate(*m_facts)).empty())
        m_facts.reset();
    if (!m_folder.empty())
        replaceAll(m_problem, m_folder + "/" + std::string(kPackageName), plainText(path));
}

EnginePackage::~EnginePackage()
{
    std::error_code ignored;
    if (!m_folder.empty())
        fs::remove_all(m_folder, ignored);
}

} // namespace vympack
