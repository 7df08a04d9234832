// SPDX-License-Identifier: MIT
// The program itself, run as a process.
#include "tests/Tools/vympack/program.h"
#include "tests/Tools/vympack/support.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

using namespace vympack_test;
using nlohmann::json;
using testing::HasSubstr;

TEST(VympackProgram, TheDemoPackageHasNoErrorAndNoWarning)
{
    const auto outcome = run("check --json " VYMPACK_DEMO);
    EXPECT_EQ(outcome.code, 0);
    const auto report = json::parse(outcome.output);
    EXPECT_EQ(report["errors"], 0) << outcome.output;
    EXPECT_EQ(report["warnings"], 0) << outcome.output;
}

TEST(VympackProgram, TheDemoPackageHoldsItsDescriptionAndTwoImages)
{
    const auto outcome = run("list --json " VYMPACK_DEMO);
    EXPECT_EQ(outcome.code, 0);
    const auto files = json::parse(outcome.output)["files"];
    ASSERT_EQ(files.size(), 3U);
    EXPECT_EQ(files[0]["name"], "VYMINFO.txt");
    EXPECT_EQ(files[1]["name"], "main.bin");
    EXPECT_EQ(files[1]["offset"], files[0]["size"]);
    EXPECT_EQ(files[1]["size"], 307241);
    EXPECT_EQ(files[2]["size"], 71683);
}

TEST(VympackProgram, MakesListsChecksAndUnpacks)
{
    const TempFolder folder;
    for (const auto& [name, bytes] : goodFiles())
        folder.write(name, bytes);
    const auto package = folder / "package";
    const auto inputs = folder / "VYMINFO.txt" + " " + folder / "main.bin";
    EXPECT_EQ(run("make -o " + package + " " + inputs).code, 0);
    EXPECT_EQ(readFile(folder / "package"), container(goodFiles()));
    EXPECT_THAT(run("list " + package).output, HasSubstr("         8  main.bin\n"));
    EXPECT_EQ(run("check " + package).output, package + ": 0 errors, 0 warnings\n");
    EXPECT_EQ(run("extract " + package + " -d " + folder / "out" + " main.bin").code, 0);
    EXPECT_EQ(readFile(folder / "out/main.bin"), "firmware");
}

TEST(VympackProgram, ExitCodesSayWhatHappened)
{
    const TempFolder folder;
    const auto broken = folder.write("broken", "no package");
    const auto warned =
        folder.write("warned", container({{"VYMINFO.txt", goodDescription()}, {"main.bin", ""}}));
    for (const auto& [name, bytes] : goodFiles())
        folder.write(name, bytes);
    const auto inputs = folder / "VYMINFO.txt" + " " + folder / "main.bin";
    const struct {
        const char* why;
        std::string arguments;
        int code;
    } rows[] = {
        {"help", "--help", 0},
        {"help of a command", "make --help", 0},
        {"a package that exists", "make -o " + warned + " " + inputs, 1},
        {"a package on a full device", "make --force -o /dev/full " + inputs, 73},
        {"a package to an output that is full", "make -o - " + inputs + " >/dev/full", 73},
        {"version", "--version", 0},
        {"no command", "", 64},
        {"an unknown command", "unpack", 64},
        {"an unknown option", "check --fix " + warned, 64},
        {"no file", "check", 64},
        {"no output", "make " + warned, 64},
        {"warnings only", "check " + warned, 0},
        {"errors", "check " + broken, 1},
        {"a list of what is no package", "list " + broken, 1},
        {"a file that is not there", "check " + folder / "none", 66},
        {"a folder without a package", "check /proc/self/fd", 66},
        {"an input that is not there", "make -o x " + folder / "none", 66},
        {"a refused make", "make -o " + folder / "new" + " " + broken, 1},
        {"results that cannot be written", "check " + warned + " >/dev/full", 73},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        const auto outcome = run(row.arguments);
        EXPECT_EQ(outcome.code, row.code) << outcome.output;
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "new"));
}

TEST(VympackProgram, ReasonsOfAFailureGoToTheOtherStream)
{
    const TempFolder folder;
    EXPECT_EQ(run("check " + folder / "none" + " 2>/dev/null").output, "");
    const auto broken = folder.write("broken", "no package");
    EXPECT_EQ(run("make -o x " + broken + " 2>/dev/null").output, "");
    EXPECT_THAT(run("check " + broken + " 2>/dev/null").output, HasSubstr("[bad-trailer]"));
}

TEST(VympackProgram, HostileBytesMakeValidJsonAndNoTerminalSequences)
{
    const TempFolder folder;
    const auto text = goodDescription() + "BAD\x1B[2J\xFFKEY x\r\nTGMNAM\xFF x\r\nPORTNO\x80 y\r\n";
    const auto package = folder.write(
        "package\xFF", container({{"VYMINFO.txt", text}, {"\x1B[2J\xC3", "x"}, {"main.bin", "x"}}));
    for (const char* command : {"check --json ", "list --json "}) {
        const auto outcome = run(command + package);
        const auto report = json::parse(outcome.output, nullptr, false);
        EXPECT_FALSE(report.is_discarded()) << outcome.output;
        EXPECT_THAT(outcome.output, HasSubstr(R"(\\x1b[2J\\xc3)"));
    }
    EXPECT_EQ(run("check " + package).output.find('\x1B'), std::string::npos);
    EXPECT_THAT(run("check " + package).output, HasSubstr("PORTNO\\x80"));
}

TEST(VympackProgram, ADefectInJsonHasItsPlaceAndItsName)
{
    const TempFolder folder;
    const auto text = replaced(goodDescription(), "48350", "0");
    const auto package =
        folder.write("package", container({{"VYMINFO.txt", text}, {"main.bin", "x"}}));
    const auto outcome = run("check --json " + package);
    EXPECT_EQ(outcome.code, 1);
    const auto defect = json::parse(outcome.output)["defects"].at(0);
    EXPECT_EQ(defect["severity"], "error");
    EXPECT_EQ(defect["name"], "bad-number");
    EXPECT_EQ(defect["file"], package);
    EXPECT_EQ(defect["member"], "VYMINFO.txt");
    EXPECT_EQ(defect["row"], 5);
    EXPECT_EQ(defect["column"], 8);
    EXPECT_TRUE(defect["offset"].is_null());
}

TEST(VympackProgram, MakeSaysAsJsonWhatItWrote)
{
    const TempFolder folder;
    for (const auto& [name, bytes] : goodFiles())
        folder.write(name, bytes);
    const auto inputs = folder / "VYMINFO.txt" + " " + folder / "main.bin";
    const auto report =
        json::parse(run("make --json -o " + folder / "package" + " " + inputs).output);
    EXPECT_EQ(report["schema_version"], 1);
    EXPECT_EQ(report["size"], container(goodFiles()).size());
    EXPECT_EQ(report["files"][1]["name"], "main.bin");
    const auto sum = shell("sha256sum < " + folder / "package").output;
    EXPECT_EQ(report["sha256"], sum.substr(0, 64));
    const auto inner = shell("sha256sum < " + folder / "main.bin").output;
    EXPECT_EQ(report["files"][1]["sha256"], inner.substr(0, 64));
}

TEST(VympackProgram, APackageOnStandardOutputIsThePackageAndNothingElse)
{
    const TempFolder folder;
    for (const auto& [name, bytes] : goodFiles())
        folder.write(name, bytes);
    const auto inputs = folder / "VYMINFO.txt" + " " + folder / "main.bin";
    EXPECT_EQ(run("make -o - " + inputs + " 2>/dev/null").output, container(goodFiles()));
    EXPECT_THAT(run("make -o - " + inputs + " 2>&1 >/dev/null").output, HasSubstr("SHA-256"));
}

TEST(VympackProgram, AFileSizeLimitLeavesNoPartialFile)
{
    const TempFolder folder;
    folder.write("VYMINFO.txt", goodDescription());
    folder.write("main.bin", std::string(3'000'000, 'x'));
    const auto make = std::string(VYMPACK_PROGRAM) + " make -o " + folder / "package" + " "
        + folder / "VYMINFO.txt" + " " + folder / "main.bin";
    const auto outcome = shell("ulimit -f 100; " + make);
    EXPECT_EQ(outcome.code, 73) << outcome.output;
    EXPECT_THAT(outcome.output, HasSubstr("File too large"));
    EXPECT_EQ(folder.names(), (std::set<std::string>{"VYMINFO.txt", "main.bin"}));
}

TEST(VympackProgram, AFullDiskLeavesNoPartialFile)
{
    const TempFolder folder;
    // A file system of 64 KiB, in the test's own mount namespace.
    const auto outcome = shell(
        "unshare -rm sh -c 'mount -t tmpfs -o size=64k none " + folder.path().string() + " && cd "
        + folder.path().string() + " && printf %s \"$1\" > VYMINFO.txt" + " && " + VYMPACK_PROGRAM
        + " make -o package VYMINFO.txt " + VYMPACK_DEMO + "; code=$?; ls -A; exit $code' sh '"
        + replaced(goodDescription(), "main.bin", "VYMBINDDATA") + "'");
    if (outcome.output.find("unshare") != std::string::npos
        || outcome.output.find("permission denied") != std::string::npos)
        GTEST_SKIP() << "no mount namespaces here: " << outcome.output;
    EXPECT_EQ(outcome.code, 73) << outcome.output;
    EXPECT_THAT(outcome.output, HasSubstr("No space left on device"));
    EXPECT_EQ(outcome.output.find(".tmp"), std::string::npos) << outcome.output;
}

TEST(VympackProgram, ASignalLeavesNoPartialFile)
{
    const TempFolder folder;
    folder.write("VYMINFO.txt", goodDescription());
    // Sparse, and far more than is written before the signal arrives.
    folder.write("main.bin", "x");
    std::filesystem::resize_file(folder / "main.bin", 2'000'000'000);
    for (const char* name : {"TERM", "HUP", "XCPU"}) {
        const auto outcome = shell("cd " + folder.path().string() + "; " + VYMPACK_PROGRAM
                                   + " make -o package VYMINFO.txt main.bin & "
                                     "until ls -A | grep -q tmp; do :; done; kill -"
                                   + name + " $!; wait $!");
        EXPECT_EQ(outcome.code, 130) << name << outcome.output;
        EXPECT_EQ(folder.names(), (std::set<std::string>{"VYMINFO.txt", "main.bin"})) << name;
    }
}
