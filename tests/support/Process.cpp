// SPDX-License-Identifier: MIT
#include "tests/support/Process.h"

#include "tests/support/TempFolder.h"

#include <csignal>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kLook{5};

void redirect(const std::string& path, int descriptor)
{
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_APPEND, 0600);
    dup2(file, descriptor);
    close(file);
}

} // namespace

Process::Process(std::vector<std::string> command, const Environment& environment)
{
    m_folder = (std::filesystem::temp_directory_path() / "vymkit-process-XXXXXX").string();
    if (mkdtemp(m_folder.data()) == nullptr)
        throw std::runtime_error("no temporary folder");
    std::vector<char*> arguments;
    for (auto& word : command)
        arguments.push_back(word.data());
    arguments.push_back(nullptr);
    m_pid = fork();
    if (m_pid != 0)
        return;
    for (const auto& setting : environment)
        putenv(strdup(setting.c_str()));
    const int nothing = open("/dev/null", O_RDONLY);
    dup2(nothing, STDIN_FILENO);
    redirect(m_folder + "/out", STDOUT_FILENO);
    redirect(m_folder + "/errors", STDERR_FILENO);
    execv(arguments[0], arguments.data());
    _exit(127);
}

Process::~Process()
{
    if (!finished()) {
        signal(SIGKILL);
        waitpid(m_pid, nullptr, 0);
    }
    std::error_code ignored;
    std::filesystem::remove_all(m_folder, ignored);
}

void Process::signal(int number) const
{
    kill(m_pid, number);
}

bool Process::finished()
{
    int status = 0;
    if (!m_ended && waitpid(m_pid, &status, WNOHANG) == m_pid) {
        m_ended = true;
        m_exitCode = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    return m_ended;
}

int Process::wait(std::chrono::seconds limit)
{
    if (!finished()) { // the kernel reports the end: a program may run for long
        pollfd end{static_cast<int>(syscall(SYS_pidfd_open, m_pid, 0)), POLLIN, 0};
        poll(&end, 1, static_cast<int>(std::chrono::milliseconds(limit).count()));
        close(end.fd);
    }
    return finished() ? m_exitCode : -1;
}

bool Process::waitFor(const std::string& path, const std::string& text, std::chrono::seconds limit)
{
    for (const auto end = Clock::now() + limit; Clock::now() < end;) {
        const bool ended = finished(); // checked first, so that its last output is still read
        if (readFile(path).find(text) != std::string::npos)
            return true;
        if (ended)
            return false;
        std::this_thread::sleep_for(kLook);
    }
    return false;
}

bool Process::waitForOutput(const std::string& text, std::chrono::seconds limit)
{
    return waitFor(m_folder + "/out", text, limit);
}

bool Process::waitForErrors(const std::string& text, std::chrono::seconds limit)
{
    return waitFor(m_folder + "/errors", text, limit);
}

std::string Process::out() const
{
    return readFile(m_folder + "/out");
}

std::string Process::errors() const
{
    return readFile(m_folder + "/errors");
}
