// SPDX-License-Identifier: MIT
// A whole update from one number: worker, procedure, connection, a simulated line, a model printer,
// clock, memory and stop. The same seed gives the same run, byte for byte.
#include "VYM/vymBindInfo.h"
#include "tests/sim/Run.h"
#include "tests/sim/World.h"
#include "tests/support/Package.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <unistd.h>

namespace {

constexpr unsigned kLongestSeedSeconds = 60; // of real time; a run takes milliseconds

constexpr const char* kUsage =
    "sim --seed N            one run, with its trace\n"
    "sim --seeds FROM COUNT  many runs; stops at the first untruth and names its seed\n"
    "sim --all FROM COUNT    many runs; names the seed of every untruth\n"
    "sim --twice FROM COUNT  every run twice: the traces have to be the same\n";

void openPackage()
{
    static Package package;
    for (std::size_t i = 0; i < std::size(sim::kImageSizes); ++i)
        package.file(sim::imageName(i), sim::imageOf(i));
    package.open();
    if (!vymBindInfo::Instance()->IsBindVymFile())
        std::abort();
}

// An end that no run may have: prints the seed, which is enough to repeat it.
void nameSeed(int signal)
{
    char text[80];
    const int length =
        std::snprintf(text, sizeof text, "seed %llu: the process ends with signal %d\n",
                      static_cast<unsigned long long>(sim::g_seed), signal);
    if (write(STDOUT_FILENO, text, static_cast<std::size_t>(length)) < 0)
        std::_Exit(3);
    std::_Exit(1);
}

void say(std::uint64_t seed, const sim::RunReport& report)
{
    for (const auto& sentence : report.untruths)
        std::printf("seed %llu: %s\n", static_cast<unsigned long long>(seed), sentence.c_str());
    std::fflush(stdout);
}

int showOne(std::uint64_t seed)
{
    const auto report = sim::runSeed(seed, true);
    std::fputs(report.trace.c_str(), stdout);
    std::printf("result %d, %u of %u entries with bytes out succeeded\n", report.result,
                report.succeeded, report.sent);
    say(seed, report);
    return report.untruths.empty() ? 0 : 1;
}

int runMany(std::uint64_t from, std::uint64_t count, bool goOn)
{
    unsigned long bad = 0;
    unsigned long sound = 0;
    unsigned long disturbed = 0;
    unsigned long starved = 0;
    unsigned long succeeded = 0;
    unsigned long refused = 0;
    double days = 0;
    std::map<int, unsigned long> results;
    for (auto seed = from; seed < from + count; ++seed) {
        alarm(kLongestSeedSeconds);
        const auto report = sim::runSeed(seed, false);
        say(seed, report);
        bad += report.untruths.empty() ? 0 : 1;
        if (bad != 0 && !goOn)
            return 1;
        ++results[report.started ? report.result : 0];
        sound += report.sound ? 1 : 0;
        disturbed += report.disturbed ? 1 : 0;
        starved += report.memoryFailed ? 1 : 0;
        succeeded += report.succeeded;
        refused += report.refused;
        days += static_cast<double>(report.took) / 86400e6;
    }
    std::printf(
        "%llu runs, %lu with untruths; %.1f days in the printers' time\n"
        "sound %lu, disturbed %lu, out of memory %lu; entries: %lu succeeded, %lu refused\n",
        static_cast<unsigned long long>(count), bad, days, sound, disturbed, starved, succeeded,
        refused);
    for (const auto& [result, times] : results)
        std::printf("result %3d: %lu\n", result, times);
    return bad == 0 ? 0 : 1;
}

int runTwice(std::uint64_t from, std::uint64_t count)
{
    for (auto seed = from; seed < from + count; ++seed) {
        const auto first = sim::runSeed(seed, true);
        const auto second = sim::runSeed(seed, true);
        if (first.trace != second.trace || first.result != second.result) {
            const auto at = std::mismatch(first.trace.begin(), first.trace.end(),
                                          second.trace.begin(), second.trace.end());
            const auto line =
                first.trace.rfind('\n', static_cast<std::size_t>(at.first - first.trace.begin()));
            std::printf("seed %llu: two runs differ, from here on:\n%.300s\n",
                        static_cast<unsigned long long>(seed),
                        first.trace.substr(line + 1).c_str());
            return 1;
        }
    }
    return 0;
}

} // namespace

int main(int count, char** arguments)
{
    const auto number = [&](int at) { return std::strtoull(arguments[at], nullptr, 10); };
    const auto is = [&](const char* option, int wanted) {
        return count == wanted && std::strcmp(arguments[1], option) == 0;
    };
    for (const int signal : {SIGABRT, SIGSEGV, SIGALRM, SIGFPE, SIGBUS})
        std::signal(signal, &nameSeed);
    openPackage();
    if (is("--seed", 3))
        return showOne(number(2));
    if (is("--seeds", 4) || is("--all", 4))
        return runMany(number(2), number(3), is("--all", 4));
    if (is("--twice", 4))
        return runTwice(number(2), number(3));
    std::fputs(kUsage, stderr);
    return 64;
}
