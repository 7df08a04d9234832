// SPDX-License-Identifier: MIT
#include "UI/Run/RunHistory.h"

#include "UI/Run/RunLog.h"
#include "UI/Text/PlainText.h"

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <sstream>
#include <string_view>
#include <unistd.h>

namespace {

// Opens a file that may have been replaced by now: refuses pipes, devices, and links to them.
std::string readLog(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    if (descriptor < 0)
        return {};
    std::string text(kMostHistoryBytes, '\0');
    std::size_t length = 0;
    for (;;) {
        const auto got = read(descriptor, text.data() + length, text.size() - length);
        if (got <= 0)
            break;
        length += static_cast<std::size_t>(got);
    }
    close(descriptor);
    text.resize(length);
    return text;
}

// The rest of the first line that begins with the name; empty if there is none.
std::string fieldOf(std::istringstream text, std::string_view name)
{
    std::string line;
    while (std::getline(text, line)) {
        if (line.starts_with(name) && line.substr(name.size()).starts_with(": "))
            return plainText(line.substr(name.size() + 2), kLogLineLimit);
    }
    return {};
}

// The name in "verified, 2026-11-21 11:05:00 +0100".
std::string verdictOf(const std::string& line)
{
    return line.substr(0, line.find(','));
}

PastRun pastRun(const std::string& path, std::size_t number)
{
    const auto text = readLog(path);
    const auto field = [&text](std::string_view name) {
        return fieldOf(std::istringstream(text), name);
    };
    const auto problem = field("problem"); // of a package without a run
    const auto result = field("result");
    return {number,
            path,
            field("started"),
            field("program"),
            field("printer"),
            field("address"),
            field("package"),
            result.empty() ? problem : result,
            !field("ended").empty() || !problem.empty(),
            verdictOf(field("verdict"))};
}

} // namespace

std::vector<PastRun> pastRuns(const std::string& folder)
{
    std::vector<PastRun> runs;
    const std::filesystem::path place(folder);
    for (const auto& name : logNames(folder))
        runs.push_back(pastRun((place / name).string(), runs.size() + 1));
    return runs;
}

std::optional<PastRun> unfinishedRun(const std::string& folder, const std::string& address)
{
    auto names = logNames(folder);
    names.resize(std::min(names.size(), kKeptLogs));
    const std::filesystem::path place(folder);
    for (std::size_t i = 0; i < names.size(); ++i) {
        auto run = pastRun((place / names[i]).string(), i + 1);
        if (run.address == address)
            return run.hasEnded ? std::nullopt : std::optional(std::move(run));
    }
    return std::nullopt;
}

std::string logText(const PastRun& run)
{
    std::istringstream lines(readLog(run.file));
    std::string text;
    std::string line;
    while (std::getline(lines, line))
        text += plainText(line, kLogLineLimit) + "\n";
    return text;
}
