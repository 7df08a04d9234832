// SPDX-License-Identifier: MIT
#include "CLI/HelpText.h"
#include "CLI/Options.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

using testing::HasSubstr;

namespace {

Options parse(std::vector<const char*> words)
{
    words.insert(words.begin(), "vymkit-cli");
    return parseOptions(static_cast<int>(words.size()), words.data());
}

} // namespace

TEST(Options, AreAcceptedBeforeAndAfterTheCommand)
{
    const std::vector<std::vector<const char*>> lines = {
        {"update", "--address", "192.0.2.7", "--yes", "--json", "--package", "p", "--deadline",
         "90", "--quiet", "--verbose", "--no-color"},
        {"--address", "192.0.2.7", "--yes", "--json", "--package", "p", "--deadline", "90",
         "--quiet", "--verbose", "--no-color", "update"},
        {"-y", "-q", "update", "-v", "--no-color", "--json", "-a", "192.0.2.7", "-p", "p",
         "--deadline=90"},
    };
    for (const auto& line : lines) {
        const auto options = parse(line);
        EXPECT_EQ(options.usageError, "");
        EXPECT_EQ(options.command, Command::update);
        EXPECT_EQ(options.address, "192.0.2.7");
        EXPECT_EQ(options.package, "p");
        EXPECT_EQ(options.deadline, 90);
        EXPECT_TRUE(options.yes && options.json && options.quiet && options.verbose
                    && options.noColour);
    }
}

TEST(Options, SayWhatIsWrong)
{
    const struct {
        const char* why;
        std::vector<const char*> words;
        const char* message;
    } rows[] = {
        {"nothing at all", {}, "Say what to do"},
        {"an unknown command", {"flash"}, "flash"},
        {"two commands", {"info", "check"}, "check"},
        {"an unknown option", {"info", "--force"}, "--force"},
        {"no printer", {"check"}, "needs to know the printer"},
        {"a port string of another kind",
         {"check", "--uri", "socket://192.0.2.7"},
         "is no port string"},
        {"a port string without a serial", {"check", "--uri", "usb://A/P"}, "has no serial="},
        {"a list of one printer", {"printers", "--printer", "a"}, "about no single printer"},
        {"all of a package", {"info", "--all"}, "--all belongs"},
        {"an option without its value", {"check", "--address"}, "--address"},
        {"five numbers for an address", {"check", "--address", "1.2.3.4.5"}, "four numbers"},
        {"a URL for an address", {"check", "--address", "http://printer"}, "four numbers"},
        {"an empty value", {"info", "--package=", "check"}, "--package= has no value"},
        {"a wrong letter", {"check", "--adress", "192.0.2.7"}, "Did you mean '--address'?"},
        {"a wrong letter in a command", {"chekc"}, "Did you mean 'check'?"},
        {"a port of another kind",
         {"check", "-a", "192.0.2.7", "--port", "70000"},
         "is not a port: give --port a number from 1 to 65535"},
        {"a port that nothing is connected to", {"info", "--port", "9"}, "--port belongs to"},
        {"a trace of nothing", {"info", "--trace", "f"}, "--trace belongs to"},
        {"a trace without a file", {"check", "-a", "192.0.2.7", "--trace", ""}, "name of a file"},
        {"an empty address", {"check", "--address", ""}, "four numbers"},
        {"an address that is not used", {"info", "--address", "192.0.2.7"}, "leave --address"},
        {"a SHA-256 of printers", {"printers", "--sha256", "00"}, "--sha256 and --key belong"},
        {"a SHA-256 that is too short", {"info", "--sha256", "00"}, "64 hexadecimal digits"},
        {"an empty SHA-256", {"info", "--sha256", ""}, "64 hexadecimal digits"},
        {"an empty key", {"info", "--key", ""}, "--key needs a key"},
        {"a yes to a check", {"check", "-a", "192.0.2.7", "--yes"}, "--yes belongs"},
        {"a limit in words", {"info", "--deadline", "soon"}, "'soon' is not a time limit"},
        {"an empty limit", {"info", "--deadline", ""}, "is not a time limit"},
        {"a stall limit in words",
         {"update", "-a", "192.0.2.7", "--stall-limit", "x"},
         "'x' is not a time limit: give --stall-limit"},
        {"a verification of a check",
         {"check", "-a", "192.0.2.7", "--verify", "9"},
         "--verify belongs to 'update'"},
        {"a verification for ever",
         {"update", "-a", "192.0.2.7", "--verify", "inf"},
         "give --verify a positive number"},
        {"a stall limit of a check",
         {"check", "-a", "192.0.2.7", "--stall-limit", "9"},
         "--stall-limit belongs to 'update'"},
        {"control characters", {"info", "--deadline", "\x1b[2J"}, "'\\x1b[2J'"},
        {"control characters in a command", {"\x1b[2J"}, "\\x1b[2J"},
        {"a number of no run", {"history", "-1"}, "-1"},
        {"a run by name", {"history", "last"}, "is not the number of a run"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_THAT(parse(row.words).usageError, HasSubstr(row.message));
    }
}

TEST(Options, NameTheFirmwareAsOftenAsIsWanted)
{
    const auto options =
        parse({"check", "--only", "MAIN", "-a", "192.0.2.7", "--only", "check", "--skip-same"});
    EXPECT_EQ(options.usageError, "");
    EXPECT_EQ(options.only, (std::vector<std::string>{"MAIN", "check"}));
    EXPECT_TRUE(options.skipSame);
    EXPECT_THAT(parse({"info", "--only", "MAIN"}).usageError, HasSubstr("--only belongs to"));
    EXPECT_THAT(parse({"info", "--skip-same"}).usageError, HasSubstr("--skip-same belongs to"));
}

TEST(Options, HelpAndVersionNeedNothingElse)
{
    EXPECT_EQ(parse({"--help"}).command, Command::help);
    EXPECT_EQ(parse({"update", "-h"}).command, Command::help);
    EXPECT_EQ(parse({"check", "--version"}).command, Command::version);
    EXPECT_EQ(parse({"update", "-h"}).usageError, "");
}

TEST(Options, HelpWinsOverAWrongLine)
{
    EXPECT_EQ(parse({"check", "--force", "-h"}).command, Command::help);
    EXPECT_EQ(parse({"check", "--force", "-h"}).usageError, "");
    EXPECT_EQ(parse({"check", "--address", "-h"}).command, Command::help);
}

TEST(Options, NameTheCommandAlsoInALineThatIsWrong)
{
    EXPECT_EQ(parse({"check", "--force"}).command, Command::check);
    EXPECT_EQ(parse({"update", "--deadline="}).command, Command::update);
}

TEST(Options, TakeANumberWhereOneIsMeant)
{
    EXPECT_EQ(parse({"check", "-a", "printer.example", "--port", "9100"}).port, 9100);
    EXPECT_EQ(parse({"history", "3"}).run, 3U);
    EXPECT_EQ(parse({"history"}).run, std::nullopt);
}

TEST(Options, JsonIsNoticedInALineThatIsWrong)
{
    EXPECT_TRUE(parse({"--json", "--force", "update"}).json);
    EXPECT_TRUE(parse({"--force", "--json"}).json);
    EXPECT_FALSE(parse({"--force"}).json);
}

TEST(Options, AnArgumentVectorOfNothingIsWrongUsage)
{
    EXPECT_FALSE(parseOptions(0, nullptr).usageError.empty());
}

TEST(Options, ListPrintersWithOrWithoutThoseThatCannotBeUpdated)
{
    const auto some = parse({"printers", "--deadline", "5"});
    EXPECT_EQ(some.usageError, "");
    EXPECT_EQ(some.command, Command::printers);
    EXPECT_FALSE(some.all);
    EXPECT_TRUE(parse({"--all", "printers", "--json"}).all);
    EXPECT_EQ(parse({"update", "--printer", "office", "--yes"}).printer, "office");
    EXPECT_EQ(parse({"check", "--uri", "net:office"}).uri, "net:office");
}

TEST(Options, EveryOneIsOnTheHelpPage)
{
    for (const char* word : {"info ",
                             "printers ",
                             "--printer NAME",
                             "--uri PORT",
                             "--all",
                             "check ",
                             "update ",
                             "--port N",
                             "--trace FILE",
                             "history [N]",
                             "-a, --address A",
                             "-y, --yes",
                             "-p, --package FOLDER",
                             "--deadline S",
                             "--stall-limit S",
                             "--lock-timeout S",
                             "--verify S",
                             "--json",
                             "-q, --quiet",
                             "-v, --verbose",
                             "--no-color",
                             "NO_COLOR",
                             "-h, --help",
                             "--version",
                             "Examples:",
                             "Exit codes:"})
        EXPECT_THAT(std::string(kHelpText), HasSubstr(word));
}
