// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetOptions.h"
#include "CLI/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::ElementsAre;
using testing::HasSubstr;

namespace {

using Kind = PrinterWord::Kind;

Options parse(std::vector<const char*> words)
{
    words.insert(words.begin(), "vymkit-cli");
    return parseOptions(static_cast<int>(words.size()), words.data());
}

} // namespace

TEST(FleetOptions, KeepThePrintersInTheOrderOfTheLine)
{
    const auto options = parse({"check", "--printer", "b", "-a", "192.0.2.7", "--uri=net:h",
                                "--printer", "a", "-a192.0.2.8"});
    EXPECT_EQ(options.usageError, "");
    EXPECT_TRUE(isFleetCall(options));
    EXPECT_THAT(options.fleet.printers,
                ElementsAre(PrinterWord{Kind::queue, "b"}, PrinterWord{Kind::address, "192.0.2.7"},
                            PrinterWord{Kind::uri, "net:h"}, PrinterWord{Kind::queue, "a"},
                            PrinterWord{Kind::address, "192.0.2.8"}));
    EXPECT_FALSE(options.address || options.printer || options.uri);
}

TEST(FleetOptions, OnePrinterNamedOnceIsNoFleet)
{
    EXPECT_FALSE(isFleetCall(parse({"update", "-a", "192.0.2.7", "--jobs", "4"})));
    EXPECT_EQ(parse({"update", "-a", "192.0.2.7"}).address, "192.0.2.7");
    EXPECT_TRUE(isFleetCall(parse({"update", "-a", "192.0.2.7", "--results", "f"})));
    EXPECT_TRUE(isFleetCall(parse({"update", "--from", "f"})));
    EXPECT_TRUE(isFleetCall(parse({"check", "--all"})));
    EXPECT_FALSE(isFleetCall(parse({"printers", "--all"})));
}

TEST(FleetOptions, HaveLimitsThatSuitADesk)
{
    const auto usual = parse({"check", "--all"}).fleet;
    EXPECT_EQ(usual.jobs, 8);
    EXPECT_FALSE(usual.canary || usual.maxFailures || usual.deadlineEach);
    const auto given = parse({"check", "--all", "--jobs", "100", "--canary", "2", "--max-failures",
                              "3", "--deadline-each", "9.5"})
                           .fleet;
    EXPECT_EQ(given.jobs, 100);
    EXPECT_EQ(given.canary, 2);
    EXPECT_EQ(given.maxFailures, 3);
    EXPECT_EQ(given.deadlineEach, 9.5);
}

TEST(FleetOptions, SayWhatIsWrong)
{
    const struct {
        const char* why;
        std::vector<const char*> words;
        const char* message;
    } rows[] = {
        {"no job", {"check", "--all", "--jobs", "0"}, "give --jobs a number from 1 to 500"},
        {"too many jobs", {"check", "--all", "--jobs", "501"}, "'501' is no number of printers"},
        {"no canary", {"check", "--all", "--canary", "x"}, "give --canary a number"},
        {"no failure", {"check", "--all", "--max-failures", "0"}, "give --max-failures a number"},
        {"no time", {"check", "--all", "--deadline-each", "0"}, "is not a time limit"},
        {"no list", {"check", "--from", ""}, "--from needs the name of a file"},
        {"no results", {"check", "--all", "--results", ""}, "--results needs the name of a file"},
        {"a trace of many", {"check", "--all", "--trace", "f"}, "for a call with one printer"},
        {"a list of printers", {"printers", "--from", "f"}, "--from belongs to"},
        {"a bad address among others",
         {"check", "-a", "192.0.2.7", "-a", "1.2.3"},
         "'1.2.3' is not the address"},
        {"two printers for the doctor", {"doctor", "-a", "h", "--printer", "a"}, "Only one of"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_THAT(parse(row.words).usageError, HasSubstr(row.message));
    }
}

TEST(FleetOptions, PassOnWhatHoldsForEachPrinter)
{
    const auto options = parse({"--package",   "p",           "update",  "-a",         "a",
                                "--address=b", "--yes",       "--json",  "-q",         "--only",
                                "MAIN",        "--skip-same", "--key=k", "--deadline", "9",
                                "--jobs=2",    "--from",      "list",    "--verify",   "60"});
    EXPECT_EQ(options.usageError, "");
    EXPECT_THAT(options.fleet.passedOn,
                ElementsAre("--package", "p", "--only", "MAIN", "--skip-same", "--key=k",
                            "--verify", "60"));
}
