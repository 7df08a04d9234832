// SPDX-License-Identifier: MIT
// Whole command lines that query no printer: help, package information, wrong usage, bad packages.
#include "tests/CLI/CommandRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

TEST(CommandLine, ShowsItsHelpPage)
{
    CommandRun run;
    EXPECT_EQ(run.run({"--help"}), 0);
    expectGolden("help.txt", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.run({"check", "--help", "--json"}), 0);
    expectGolden("help.json", run.out);
}

TEST(CommandLine, ShowsItsVersion)
{
    CommandRun run;
    EXPECT_EQ(run.run({"--version"}), 0);
    EXPECT_THAT(run.out, StartsWith("vymkit-cli "));
    EXPECT_EQ(run.run({"--version", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("command":"version","exit_code":0,"name":"version")"));
}

TEST(CommandLine, ShowsThePackage)
{
    CommandRun run;
    run.package.systemBounds = {0x1040, 0x1060};
    EXPECT_EQ(run.runOnPackage({"info"}), 0);
    expectGolden("info.txt", run.out);
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(run.runOnPackage({"info", "--json"}), 0);
    expectGolden("info.json", run.out);
}

TEST(CommandLine, ShowsAPackageThatSaysLittle)
{
    CommandRun run;
    run.package.model = "";
    run.package.firmware = {{"MAIN", "0110", "main.bin", "", "", "", ""}};
    run.package.files.erase("main.bin");
    EXPECT_EQ(run.runOnPackage({"info"}), 0);
    expectGolden("info-little.txt", run.out);
}

TEST(CommandLine, ShowsNoControlCharactersOfAPackage)
{
    CommandRun run;
    run.package.model = std::string("\x1b[2J\xe2\x80") + "\xae\xff"; // an override, in two halves
    run.package.firmware[0].displayName = "a\rb\xc2\x9b";
    EXPECT_EQ(run.runOnPackage({"info"}), 0);
    EXPECT_THAT(run.out, HasSubstr("\\x1b[2J\\u202e\\xff\n"));
    EXPECT_THAT(run.out, HasSubstr("a\\x0db\\u009b"));
    EXPECT_EQ(run.runOnPackage({"info", "--json"}), 0);
    EXPECT_THAT(run.out, HasSubstr(R"("model":"\\x1b[2J\\u202e\\xff")"));
}

TEST(CommandLine, SaysWhatIsWrongUsage)
{
    CommandRun run;
    EXPECT_EQ(run.run({"check"}), 64);
    EXPECT_EQ(run.out, "");
    expectGolden("usage.txt", run.err);
    EXPECT_EQ(run.run({"check", "--json"}), 64);
    expectGolden("usage.json", run.out);
    EXPECT_EQ(run.err, "");
}

TEST(CommandLine, ShowsItsCommandsOnAnEmptyCommandLine)
{
    CommandRun run;
    EXPECT_EQ(run.run({}), 64);
    expectGolden("bare.txt", run.err);
}

TEST(CommandLine, TakesThePackageByItsFileToo)
{
    CommandRun run;
    EXPECT_EQ(run.run({"info", "--package", run.folder / "VYMBINDDATA"}), 0);
    run.folder.write("other.vym", "");
    EXPECT_EQ(run.run({"info", "--package", run.folder / "other.vym"}), 0);
    EXPECT_EQ(std::string(bundleFile()), (run.folder / "other.vym"));
}

TEST(CommandLine, ConnectsToAnotherPortOnRequest)
{
    CommandRun run;
    run.runOnPackage({"check", "-a", "192.0.2.7", "--port", "9100"});
    EXPECT_EQ(run.worker.portNumber, 9100);
}

TEST(CommandLine, UpdatesNothingWithoutConsentIfItCannotAsk)
{
    CommandRun run;
    EXPECT_EQ(run.runOnPackage({"update", "--address", "192.0.2.7"}), 64);
    EXPECT_THAT(run.err, HasSubstr("add --yes"));
    EXPECT_EQ(run.runOnPackage({"update", "--address", "192.0.2.7", "--json"}), 64);
    EXPECT_THAT(run.out, HasSubstr(R"("exit_code":64,"name":"wrong-usage")"));
    EXPECT_EQ(run.worker.portNumber, 0);
}

TEST(CommandLine, SaysWhyAFolderHoldsNoPackage)
{
    CommandRun run;
    const auto tell = [&run](const std::string& folder) {
        EXPECT_EQ(run.run({"info", "--package", folder}), 66) << folder;
        EXPECT_EQ(run.out, "");
        return run.err;
    };
    EXPECT_THAT(tell(run.folder / "missing"), HasSubstr("no folder 'FOLDER/missing'"));
    EXPECT_THAT(tell("/"), HasSubstr("holds no VYMBINDDATA"));
    EXPECT_THAT(tell(""), HasSubstr("--package FOLDER"));
    EXPECT_THAT(tell(std::string(5000, 'x')), HasSubstr("too long"));
    mkdir((run.folder / "odd").c_str(), 0700);
    mkfifo((run.folder / "odd/VYMBINDDATA").c_str(), 0600);
    EXPECT_THAT(tell(run.folder / "odd"), HasSubstr("is not a file"));
}

TEST(CommandLine, SaysWhyAPackageCannotBeUsed)
{
    const struct {
        const char* why;
        void (*spoil)(FakePackage&);
        const char* message;
    } rows[] = {
        {"no container", [](FakePackage& package) { package.isContainer = false; },
         "is not an update package, or is damaged"},
        {"no description", [](FakePackage& package) { package.files.erase("VYMINFO.txt"); },
         "holds no description"},
        {"no firmware", [](FakePackage& package) { package.firmware.clear(); },
         "lists no firmware"},
        {"too much firmware",
         [](FakePackage& package) { package.firmware.resize(1001, package.firmware[0]); },
         "more than 1000 firmware"},
        {"port 0", [](FakePackage& package) { package.portNumber = 0; }, "port number"},
        {"port -1", [](FakePackage& package) { package.portNumber = -1; }, "port number"},
        {"port 65536", [](FakePackage& package) { package.portNumber = 65536; }, "port number"},
        {"no memory", [](FakePackage& package) { package.loadResult = -1; }, "memory"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        CommandRun run;
        row.spoil(run.package);
        EXPECT_EQ(run.runOnPackage({"info"}), 66);
        EXPECT_THAT(run.err, StartsWith("No usable package: "));
        EXPECT_THAT(run.err, HasSubstr(row.message));
        EXPECT_EQ(run.runOnPackage({"check", "-a", "192.0.2.7", "--json"}), 66);
        EXPECT_THAT(run.out, HasSubstr(R"("name":"no-usable-package")"));
        EXPECT_EQ(run.worker.portNumber, 0);
    }
}

TEST(CommandLine, AThousandFirmwareAreNotTooMany)
{
    CommandRun run;
    run.package.firmware.resize(1000, run.package.firmware[0]);
    EXPECT_EQ(run.runOnPackage({"info"}), 0);
}

TEST(CommandLine, SendsNothingFromAPackageThatLacksAnImage)
{
    CommandRun run;
    run.package.files.erase("engine.bin");
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"check", "-a", "192.0.2.7"},
          std::vector<std::string>{"update", "-a", "192.0.2.7", "--yes"}}) {
        EXPECT_EQ(run.runOnPackage(words), 66);
        EXPECT_EQ(run.worker.portNumber, 0);
    }
    expectGolden("no-package.txt", run.err);
    EXPECT_EQ(run.runOnPackage({"update", "-a", "192.0.2.7", "--yes", "--json"}), 66);
    expectGolden("no-package.json", run.out);
}

TEST(CommandLine, ConnectsToNothingForAPackageThatIsNotTrusted)
{
    const std::string anySha256(64, '0');
    for (const auto* key : {"no key", ""}) {
        CommandRun run;
        std::vector<std::string> words = {"update", "-a", "192.0.2.7", "--yes", "--json"};
        if (*key != '\0')
            words.insert(words.end(), {"--key", key});
        else
            words.insert(words.end(), {"--sha256", anySha256});
        EXPECT_EQ(run.runOnPackage(words), 66);
        EXPECT_THAT(run.out, HasSubstr("\"name\":\"package-not-trusted\""));
        EXPECT_EQ(run.worker.portNumber, 0);
    }
}

TEST(CommandLine, SendsNothingFromAPackageThatNamesNoModel)
{
    CommandRun run;
    run.package.model = "";
    EXPECT_EQ(run.runOnPackage({"update", "-a", "192.0.2.7", "--yes"}), 66);
    EXPECT_THAT(run.err, HasSubstr("for which model"));
    EXPECT_EQ(run.worker.portNumber, 0);
}

TEST(CommandLine, EveryJsonRunEndsWithOneResult)
{
    CommandRun run;
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"--json"}, std::vector<std::string>{"--json", "--what"},
          std::vector<std::string>{"info", "--json", "--package", "/nowhere"}}) {
        run.run(words);
        EXPECT_THAT(run.out, StartsWith(R"({"type":"result","schema_version":1,)"));
        EXPECT_THAT(run.out, EndsWith("}\n"));
        EXPECT_EQ(run.err, "");
    }
}
