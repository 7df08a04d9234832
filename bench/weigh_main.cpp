// SPDX-License-Identifier: MIT
// Runs a program and writes its cost to a file: "EXITCODE SECONDS PEAK_KIB READ_BYTES".
//
//   bench_weigh RESULT PROGRAM [ARGUMENT...]
//
// The kernel counts a program's peak from before its exec, so a process that is smaller than any
// measured program starts it. READ_BYTES counts everything that the program read from files.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

// Read after the process has ended and before it is waited for: the counts are complete then.
std::optional<unsigned long long> bytesReadBy(pid_t process)
{
    constexpr std::string_view kKey = "rchar: "; // starts the first line
    std::ifstream file("/proc/" + std::to_string(process) + "/io");
    std::string line;
    if (!std::getline(file, line) || line.substr(0, kKey.size()) != kKey)
        return std::nullopt;
    return std::strtoull(line.c_str() + kKey.size(), nullptr, 10);
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 3)
        return 64;
    const auto start = std::chrono::steady_clock::now();
    const pid_t process = fork();
    if (process == 0) {
        execv(argv[2], argv + 2);
        std::perror(argv[2]);
        _exit(127);
    }
    siginfo_t ended{};
    if (process < 0 || waitid(P_PID, static_cast<id_t>(process), &ended, WEXITED | WNOWAIT) != 0)
        return 1;
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    const auto read = bytesReadBy(process);
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    auto* file = std::fopen(argv[1], "w");
    if (file == nullptr || !read)
        return 1;
    std::fprintf(file, "%d %.4f %ld %llu\n", WIFEXITED(status) ? WEXITSTATUS(status) : -1,
                 taken.count(), usage.ru_maxrss, *read);
    return std::fclose(file) == 0 ? 0 : 1;
}
