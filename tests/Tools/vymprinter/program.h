// SPDX-License-Identifier: MIT
// The real program as a process, and a folder for it.
//
// Threads: one.
#pragma once
#include "tests/Tools/vymprinter/updater.h"

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

namespace vymprinter {

// A folder for one test.
struct Folder {
    Folder()
    {
        std::string pattern = std::filesystem::temp_directory_path() / "vymprinter-XXXXXX";
        path = ::mkdtemp(pattern.data());
    }
    ~Folder() { std::filesystem::remove_all(path); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::filesystem::path path;
};

// A running vymprinter and its output.
class Program {
public:
    explicit Program(std::vector<std::string> arguments)
    {
        int ends[2] = {};
        EXPECT_EQ(::pipe2(ends, O_CLOEXEC), 0);
        m_output = FileHandle(ends[0]);
        const FileHandle input(ends[1]);
        posix_spawn_file_actions_t actions;
        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDOUT_FILENO);
        posix_spawn_file_actions_adddup2(&actions, ends[1], STDERR_FILENO);
        arguments.insert(arguments.begin(), VYMPRINTER);
        std::vector<char*> argv;
        for (auto& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        EXPECT_EQ(::posix_spawn(&m_process, VYMPRINTER, &actions, nullptr, argv.data(), environ),
                  0);
        posix_spawn_file_actions_destroy(&actions);
    }
    ~Program()
    {
        if (m_process > 0) {
            ::kill(m_process, SIGKILL);
            ::waitpid(m_process, nullptr, 0);
        }
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The next line, or its beginning if the program ends.
    std::string line() const
    {
        std::string text;
        for (char letter = 0; ::read(m_output.get(), &letter, 1) == 1 && letter != '\n';)
            text += letter;
        return text;
    }
    std::string rest() const
    {
        std::string text;
        char buffer[4096];
        for (ssize_t got = 0; (got = ::read(m_output.get(), buffer, sizeof buffer)) > 0;)
            text.append(buffer, static_cast<std::size_t>(got));
        return text;
    }
    // Waits for the "listening on" line.
    Endpoint endpoint() const
    {
        const auto text = line();
        EXPECT_THAT(text, ::testing::StartsWith("listening on 127."));
        return parseEndpoint(text.substr(13)).value();
    }
    void signal(int number) const { ::kill(m_process, number); }
    int exitCode()
    {
        int status = 0;
        ::waitpid(std::exchange(m_process, 0), &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t m_process = 0;
    FileHandle m_output;
};

} // namespace vymprinter
