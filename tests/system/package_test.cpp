// SPDX-License-Identifier: MIT
// Packages that change during a run, and hostile ones that are large: what was checked is what is
// sent, and nothing hangs.
#include "tests/support/Package.h"
#include "tests/system/Desk.h"

#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

namespace {

using namespace desk;

constexpr std::size_t kMiB = 1024 * 1024;
// Of rows; a sanitizer walks them ten times slower.
constexpr std::size_t kWalked = 4 * kMiB / (VYMKIT_TEST_SLOWNESS > 2 ? 4 : 1);

// Writes other bytes over a part of the file, in place; its length stays.
void overwrite(const std::string& path, std::size_t begin, std::size_t end)
{
    auto bytes = readFile(path);
    for (auto i = begin; i < end; ++i)
        bytes[i] = static_cast<char>(bytes[i] ^ 1);
    std::ofstream(path, std::ios::binary | std::ios::in) << bytes;
}

// What is on its way to the printer has a bound, so the part that changes is read seconds later.
// The printer does nothing while it is changed.
TEST(PackageThatIsWrittenOver, EndsTheUpdateBeforeTheLastBlock)
{
    const PackageFolder package({{"MAIN", "AB010200", 1500000}}, {"UPDATETIME 60"});
    const VirtualPrinter printer({"--firmware", "MAIN=AB010100", "--max-packet", "65536",
                                  "--piece-time", "400", "--window", "65536"});
    CliRun run(updateOf(printer, package));
    ASSERT_TRUE(run.process().waitForOutput("\"sending\"", kSoon)) << run.process().out();
    printer.hold();
    overwrite(package.path() + "/VYMBINDDATA", 1000000, 1450000);
    printer.goOn();
    EXPECT_EQ(run.exitCode(), 18) << run.process().out();
    const auto result = run.result();
    EXPECT_EQ(result["firmware_bytes_sent"], true);
    EXPECT_EQ(result["next"], "check-printer");
    EXPECT_GE(result["firmware"][0]["bytes_sent"], 500000);
    EXPECT_LT(result["firmware"][0]["bytes_sent"], 1500000);
    EXPECT_FALSE(printer.stored("MAIN.FW").has_value()) << "its last block was sent";
}

struct Hostile {
    const char* name;
    std::function<void(Package&)> make;
};

std::string repeated(const std::string& text, std::size_t bytes)
{
    std::string all;
    while (all.size() < bytes)
        all += text;
    return all;
}

// Rows as the package's description may have them at most.
std::string manyVersions()
{
    std::string text = "TGMNAME MODEL-A\r\nPLATFORMVERSION MACOS=0\r\n";
    for (int i = 0; i < 1000; ++i)
        text += "VERSION M" + std::to_string(i) + "=1 m" + std::to_string(i) + ".bin M\r\n";
    return text;
}

const Hostile kHostile[] = {
    {"RowsAfterMegabytesOfBlanks",
     [](Package& package) {
         package.file("VYMINFO.txt", std::string(kWalked, ' ') + "\r\n" + manyVersions())
             .file("filler", std::string(64 * kMiB - kWalked, '\0'));
     }},
    {"MegabytesOfShortRows",
     [](Package& package) {
         package.file("VYMINFO.txt", repeated("T\r\nP\r\nV\r\n", kWalked) + manyVersions())
             .file("filler", std::string(64 * kMiB - kWalked, '\0'));
     }},
    {"ATableWithoutEnd",
     [](Package& package) {
         package.file("VYMINFO.txt", manyVersions()).file("filler", std::string(64 * kMiB, 'x'));
         package.tableOffset(0).count(0x7FFFFFFF);
     }},
};

class HostilePackage : public ::testing::TestWithParam<Hostile> {
protected:
    HostilePackage()
    {
        Package package;
        GetParam().make(package);
        m_folder.write("VYMBINDDATA", package.bytes());
    }
    [[nodiscard]] std::vector<std::string> with(std::vector<std::string> words) const
    {
        words.insert(words.end(), {"--package", m_folder.path().string(), "--json"});
        return words;
    }

private:
    TempFolder m_folder;
};

TEST_P(HostilePackage, EndsEveryCommandThatReadsIt)
{
    CliRun info(with({"info"}));
    EXPECT_TRUE(std::set<int>({0, 66}).count(info.exitCode()) != 0) << info.process().out();
    CliRun check(with({"check", "--address", "127.0.0.1", "--port", "1"}));
    EXPECT_TRUE(std::set<int>({16, 66}).count(check.exitCode()) != 0) << check.process().out();
    EXPECT_EQ(check.result()["firmware_bytes_sent"], false);
}

INSTANTIATE_TEST_SUITE_P(OfSixtyFourMegabytes, HostilePackage, ::testing::ValuesIn(kHostile),
                         [](const auto& tested) { return std::string(tested.param.name); });

// A package whose table comes after a gigabyte that takes no room on the disk: its digest alone
// takes longer than the time limit.
TEST(LargePackage, HearsTheTimeLimitWhileItIsRead)
{
    constexpr std::uint32_t kTableAt = 1024 * kMiB;
    const auto text = manyVersions(); // a package has two files or more
    const auto bytes =
        Package().file("VYMINFO.txt", text).file("empty", "").tableOffset(kTableAt).bytes();
    const TempFolder folder;
    const auto path = folder / "VYMBINDDATA";
    folder.write("VYMBINDDATA", bytes.substr(0, text.size()));
    std::filesystem::resize_file(path, kTableAt);
    std::ofstream(path, std::ios::binary | std::ios::app) << bytes.substr(text.size());
    CliRun run({"info", "--package", folder.path().string(), "--json", "--deadline", "0.2",
                "--sha256", std::string(64, '0')},
               CliRun::Pauses::shortened, {"VYMKIT_TEST_SLOWNESS=1"});
    EXPECT_EQ(run.exitCode(kSoon), 130) << run.process().out();
    EXPECT_EQ(run.result()["name"], "stopped");
}

} // namespace
