// SPDX-License-Identifier: MIT
#include "Tools/vympack/StagedFolder.h"

#include "Tools/vympack/Interrupt.h"

#include <cassert>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <new>
#include <sys/stat.h>
#include <system_error>

namespace vympack {

namespace {

constexpr mode_t kNewFolder = 0777; // minus the bits of the umask

void flushFolder(const std::string& path)
{
    const UniqueFd folder(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.isOpen())
        ::fsync(folder.get());
}

} // namespace

StagedFolder::StagedFolder(std::string path) : m_path(std::move(path)) { }

StagedFolder::~StagedFolder()
{
    discard();
}

bool StagedFolder::fail(std::string reason, int exitCode)
{
    m_reason = std::move(reason);
    m_exitCode = exitCode;
    return false;
}

bool StagedFolder::failWithErrno()
{
    return fail(std::generic_category().message(errno), kExitNoOutput);
}

void StagedFolder::discard()
{
    if (m_staging.empty())
        return;
    // What cannot be removed, for lack of memory or otherwise, stays; there is no better answer.
    try {
        std::error_code error;
        for (std::size_t i = 0; i < m_moved; ++i)
            ::unlink((m_path + "/" + m_names[i]).c_str());
        std::filesystem::remove_all(m_staging, error);
    } catch (const std::bad_alloc&) {
    }
    if (m_isNew)
        ::rmdir(m_path.c_str());
    m_staging.clear();
}

bool StagedFolder::isEmpty()
{
    std::error_code error;
    const bool isFolder = std::filesystem::is_directory(m_path, error);
    if (!error && !isFolder)
        return fail("the name belongs to something that is not a folder", kExitNoOutput);
    const bool empty = std::filesystem::is_empty(m_path, error);
    if (error)
        return fail(error.message(), kExitNoOutput);
    return empty || fail("is not empty; give a new or an empty folder", kExitDefects);
}

bool StagedFolder::open()
{
    assert(m_staging.empty());
    m_isNew = ::mkdir(m_path.c_str(), kNewFolder) == 0;
    if (!m_isNew && (errno != EEXIST ? !failWithErrno() : !isEmpty()))
        return false;
    auto name = m_path + "/.vympack-XXXXXX";
    if (::mkdtemp(name.data()) == nullptr) {
        failWithErrno();
        if (m_isNew)
            ::rmdir(m_path.c_str());
        return false;
    }
    m_staging = name;
    return true;
}

bool StagedFolder::keep(AtomicFile& file, const std::string& name, bool isWritten)
{
    if (!isWritten || !file.commit())
        return fail(name + ": " + file.reason(), file.exitCode());
    m_names.push_back(name);
    return true;
}

bool StagedFolder::add(const std::string& name, const InputFile& from, AtomicFile::Kind kind)
{
    assert(!m_staging.empty() && name.find('/') == std::string::npos);
    AtomicFile file(m_staging + "/" + name, AtomicFile::Existing::kept, kind);
    return keep(file, name, file.open() && file.copy(from, 0, from.size()));
}

bool StagedFolder::add(const std::string& name, const std::string& text, AtomicFile::Kind kind)
{
    assert(!m_staging.empty() && name.find('/') == std::string::npos);
    AtomicFile file(m_staging + "/" + name, AtomicFile::Existing::kept, kind);
    return keep(file, name, file.open() && file.write(text.data(), text.size()));
}

bool StagedFolder::commit()
{
    assert(!m_staging.empty());
    for (; m_moved < m_names.size(); ++m_moved) {
        if (interrupted())
            return fail("interrupted", kExitInterrupted);
        const auto from = m_staging + "/" + m_names[m_moved];
        const auto to = m_path + "/" + m_names[m_moved];
        // The folder was empty, so a file of that name is another program's.
        if (::access(to.c_str(), F_OK) == 0)
            return fail("is not empty any more", kExitDefects);
        if (std::rename(from.c_str(), to.c_str()) != 0)
            return failWithErrno();
    }
    ::rmdir(m_staging.c_str());
    m_staging.clear();
    flushFolder(m_path);
    return true;
}

} // namespace vympack
