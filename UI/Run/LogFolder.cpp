// SPDX-License-Identifier: MIT
#include "UI/Run/LogFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <ctime>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using Milliseconds = std::chrono::milliseconds;

constexpr mode_t kOwnFolder = 0700; // as the XDG base directories require
constexpr mode_t kOwnFile = 0600;
constexpr std::string_view kShape = "run-########T######.###Z-"; // # is a digit
constexpr std::string_view kEnding = ".log";
constexpr int kTries = 100; // names that runs of one process may want at the same moment

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

std::string environmentPath(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? value : ""; // a relative one must be ignored
}

std::string nameAt(Milliseconds sinceEpoch)
{
    const auto seconds = static_cast<std::time_t>(sinceEpoch.count() / 1000);
    std::tm time{};
    gmtime_r(&seconds, &time);
    std::array<char, 32> date{};
    std::strftime(date.data(), date.size(), "run-%Y%m%dT%H%M%S.", &time);
    const auto fraction = std::to_string(1000 + sinceEpoch.count() % 1000).substr(1);
    return date.data() + fraction + "Z-" + std::to_string(getpid()) + std::string(kEnding);
}

void makeFolders(const std::string& folder)
{
    for (auto end = folder.find('/', 1); end != std::string::npos; end = folder.find('/', end + 1))
        mkdir(folder.substr(0, end).c_str(), kOwnFolder);
    mkdir(folder.c_str(), kOwnFolder);
}

NewLog opened(const std::string& folder)
{
    auto time = std::chrono::duration_cast<Milliseconds>(
        std::chrono::system_clock::now().time_since_epoch());
    NewLog log;
    for (int i = 0; i < kTries; ++i, ++time) {
        const auto path = folder + "/" + nameAt(time);
        log.descriptor = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kOwnFile);
        if (log.descriptor >= 0) {
            log.path = path;
            return log;
        }
        if (errno != EEXIST)
            break;
    }
    log.problem = folder + ": " + std::strerror(errno);
    return log;
}

// The date in a log's name: "20261121T033509" sorts and compares like a time.
std::string dateOf(std::string_view name)
{
    constexpr std::size_t kDateAt = 4; // after "run-"
    constexpr std::size_t kDateLength = 15;
    return std::string(name.substr(kDateAt, kDateLength));
}

std::string dateBefore(int days)
{
    const auto then = std::chrono::system_clock::now() - std::chrono::hours(24 * days);
    return dateOf(nameAt(std::chrono::duration_cast<Milliseconds>(then.time_since_epoch())));
}

// The new log stays, and counts among those that are always kept.
void removeOldest(const std::string& folder, const std::string& newName)
{
    auto names = logNames(folder);
    names.erase(std::remove(names.begin(), names.end(), newName), names.end());
    const auto oldest = dateBefore(kKeptDays);
    std::uintmax_t bytes = 0;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const auto path = folder + "/" + names[i];
        std::error_code vanished;
        const auto size = fs::file_size(path, vanished);
        bytes += vanished ? 0 : size;
        const bool isSurplus = bytes > kMostLogBytes || dateOf(names[i]) < oldest;
        if (i + 1 >= kKeptLogs && isSurplus)
            unlink(path.c_str());
    }
}

} // namespace

std::string logFolder()
{
    if (const auto state = environmentPath("XDG_STATE_HOME"); !state.empty())
        return state + "/vymkit";
    const auto home = environmentPath("HOME");
    return home.empty() ? "" : home + "/.local/state/vymkit";
}

bool isLogName(std::string_view name)
{
    if (name.size() <= kShape.size() + kEnding.size() || !name.ends_with(kEnding))
        return false;
    for (std::size_t i = 0; i < kShape.size(); ++i)
        if (kShape[i] == '#' ? !isDigit(name[i]) : name[i] != kShape[i])
            return false;
    name.remove_prefix(kShape.size());
    name.remove_suffix(kEnding.size());
    return std::all_of(name.begin(), name.end(), isDigit);
}

std::vector<std::string> logNames(const std::string& folder)
{
    std::vector<std::string> names;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code vanished;
        const bool isFile = fs::is_regular_file(entry->symlink_status(vanished));
        if (isFile && isLogName(entry->path().filename().native()))
            names.push_back(entry->path().filename());
    }
    std::sort(names.rbegin(), names.rend());
    return names;
}

NewLog createLog(const std::string& folder)
{
    if (folder.empty())
        return {-1, "", "no folder for it is known: HOME is not set"};
    makeFolders(folder);
    auto log = opened(folder);
    if (log.descriptor >= 0)
        removeOldest(folder, log.path.substr(folder.size() + 1));
    return log;
}
