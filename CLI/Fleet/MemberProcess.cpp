// SPDX-License-Identifier: MIT
#include "CLI/Fleet/MemberProcess.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t kReadSize = 65536; // a pipe holds no more
// Longer than any line of ours; a line that grows beyond it is no line.
constexpr std::size_t kLongestOutput = 16UL * 1024 * 1024;

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (auto& text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<char*> environmentWith(std::string& variable)
{
    std::vector<char*> all = {variable.data()};
    for (char** each = environ; *each != nullptr; ++each)
        all.push_back(*each);
    all.push_back(nullptr);
    return all;
}

// The settings of the new process, which are freed in any case.
class SpawnSettings {
public:
    explicit SpawnSettings(int output)
    {
        posix_spawn_file_actions_init(&m_actions);
        posix_spawn_file_actions_addopen(&m_actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_adddup2(&m_actions, output, STDOUT_FILENO);
        posix_spawnattr_init(&m_attributes);
        // Keys at the terminal reach the call only, which passes them on; and when the call is
        // killed together with its group, a printer is still finished.
        posix_spawnattr_setpgroup(&m_attributes, 0);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETPGROUP);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    [[nodiscard]] const posix_spawn_file_actions_t* actions() const { return &m_actions; }
    [[nodiscard]] const posix_spawnattr_t* attributes() const { return &m_attributes; }

private:
    posix_spawn_file_actions_t m_actions{};
    posix_spawnattr_t m_attributes{};
};

} // namespace

MemberProcess::~MemberProcess()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

MemberProcess::MemberProcess(MemberProcess&& other) noexcept
    : m_pid(std::exchange(other.m_pid, -1)), m_descriptor(std::exchange(other.m_descriptor, -1)),
      m_isAtEnd(other.m_isAtEnd), m_partLine(std::move(other.m_partLine))
{
}

std::string MemberProcess::start(const std::string& program, const std::vector<std::string>& words,
                                 const std::string& variable)
{
    assert(m_descriptor == -1 && !words.empty());
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0)
        return std::strerror(errno);
    m_descriptor = ends[0];
    fcntl(m_descriptor, F_SETFL, O_NONBLOCK);
    auto ownWords = words;
    auto ownVariable = variable;
    const SpawnSettings settings(ends[1]);
    const int failed =
        posix_spawn(&m_pid, program.c_str(), settings.actions(), settings.attributes(),
                    pointersTo(ownWords).data(), environmentWith(ownVariable).data());
    close(ends[1]);
    if (failed == 0)
        return {};
    m_pid = -1;
    return std::strerror(failed);
}

std::vector<std::string> MemberProcess::lines()
{
    assert(m_descriptor != -1);
    std::vector<std::string> whole;
    std::array<char, kReadSize> bytes{};
    const auto length = read(m_descriptor, bytes.data(), bytes.size());
    m_isAtEnd = length == 0 || (length < 0 && errno != EAGAIN && errno != EINTR);
    if (length <= 0)
        return whole;
    m_partLine.append(bytes.data(), static_cast<std::size_t>(length));
    std::size_t begin = 0;
    for (auto end = m_partLine.find('\n'); end != std::string::npos;
         end = m_partLine.find('\n', begin)) {
        whole.push_back(m_partLine.substr(begin, end - begin));
        begin = end + 1;
    }
    m_partLine.erase(0, begin);
    if (m_partLine.size() > kLongestOutput)
        m_partLine.clear();
    return whole;
}

void MemberProcess::stop() const
{
    if (m_pid > 0)
        kill(m_pid, SIGINT);
}

std::string MemberProcess::finish()
{
    if (m_pid <= 0)
        return {};
    int status = 0;
    pid_t ended = -1;
    do {
        ended = waitpid(m_pid, &status, 0);
    } while (ended < 0 && errno == EINTR);
    m_pid = -1;
    if (ended > 0 && WIFSIGNALED(status))
        return "signal " + std::to_string(WTERMSIG(status));
    return {};
}
