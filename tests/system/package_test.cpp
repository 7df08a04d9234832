// SPDX-License-Identifier: MIT
// Packages that change during a run, and hostile ones that are large: what was checked is what is
// sent, and nothing hangs.
#include "tests/support/Package.h"
#include "tests/system/Desk.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>
#include <sys/wait.h>

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

// Only so many bytes can be on their way to the printer, so the part that changes is read seconds
// later. The printer does nothing while it is changed.
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

// A package whose table comes after gigabytes that take no room on the disk: to read it all takes
// many seconds.
class LargePackage {
public:
    LargePackage()
    {
        constexpr std::uint32_t kTableAt = 3 * 1024 * kMiB;
        const std::string text = "TGMNAME MODEL-A\r\nPLATFORMVERSION MACOS=0\r\nENTERTIME 1\r\n"
                                 "EXITTIME 1\r\nUPDATETIME 1\r\nVERSION MAIN=AB010200 main.bin\r\n";
        const auto bytes =
            Package().file("VYMINFO.txt", text).file("main.bin", "x").tableOffset(kTableAt).bytes();
        const auto path = m_folder / "VYMBINDDATA";
        m_folder.write("VYMBINDDATA", bytes.substr(0, text.size() + 1));
        std::filesystem::resize_file(path, kTableAt);
        std::ofstream(path, std::ios::binary | std::ios::app) << bytes.substr(text.size() + 1);
    }
    [[nodiscard]] std::string path() const { return m_folder.path().string(); }

private:
    TempFolder m_folder;
};

const std::string kAnySha256(64, '0');

TEST(LargePackages, AreReadNoLongerThanTheTimeLimit)
{
    const LargePackage package;
    CliRun run({"info", "--package", package.path(), "--json", "--deadline", "0.2", "--sha256",
                kAnySha256},
               CliRun::Pauses::shortened, {"VYMKIT_TEST_SLOWNESS=1"});
    EXPECT_EQ(run.exitCode(kSoon), 130) << run.process().out();
    EXPECT_EQ(run.result()["name"], "stopped");
}

// How much the program has read so far, also after its end.
std::size_t bytesReadBy(pid_t program)
{
    const auto counts = readFile("/proc/" + std::to_string(program) + "/io");
    const std::string name = "rchar: ";
    const auto at = counts.find(name);
    return at == std::string::npos ? 0 : std::stoul(counts.substr(at + name.size()));
}

// Interrupts the run once the reading has begun; returns how much it read afterwards.
std::size_t readAfterInterrupt(CliRun& run)
{
    const auto program = run.process().pid();
    waitUntil([&] { return bytesReadBy(program) > 8 * kMiB; });
    run.process().signal(SIGSTOP);
    siginfo_t change{};
    EXPECT_EQ(waitid(P_PID, static_cast<id_t>(program), &change, WSTOPPED | WNOWAIT), 0);
    const auto before = bytesReadBy(program);
    run.process().signal(SIGINT);
    run.process().signal(SIGCONT);
    waitUntil([&] {
        change.si_pid = 0;
        return waitid(P_PID, static_cast<id_t>(program), &change, WEXITED | WNOHANG | WNOWAIT) == 0
            && change.si_pid == program;
    });
    return bytesReadBy(program) - before;
}

struct Reading {
    const char* name;
    std::vector<std::string> words;
    const char* message;
    const char* unseen; // by the printer
};

class LargePackageThatIsRead : public ::testing::TestWithParam<Reading> { };

// A second's reading is hundreds of megabytes.
TEST_P(LargePackageThatIsRead, IsLeftAtOnceOnCtrlC)
{
    const LargePackage package;
    const VirtualPrinter printer({"--firmware", "MAIN=AB010100"});
    auto words = GetParam().words;
    std::replace(words.begin(), words.end(), std::string("PRINTER"), printer.address());
    words.insert(words.end(), {"--package", package.path(), "--json"});
    CliRun run(words);
    EXPECT_LT(readAfterInterrupt(run), 8 * kMiB);
    EXPECT_EQ(run.exitCode(), 130) << run.process().out();
    const auto result = run.result();
    EXPECT_EQ(result["name"], "stopped");
    EXPECT_EQ(result["firmware_bytes_sent"], false);
    EXPECT_NE(std::string(result["message"]).find(GetParam().message), std::string::npos) << result;
    EXPECT_EQ(printer.transcript().find(GetParam().unseen), std::string::npos);
}

constexpr const char* kWhileReading = "while the package was being read";
constexpr const char* kBeforeFirmware = "before any firmware was sent";
constexpr const char* kAnyPacket = "0x";
constexpr const char* kFirmwarePacket = "0x5002";

const Reading kReadings[] = {
    {"Info", {"info", "--sha256", kAnySha256}, kWhileReading, kAnyPacket},
    {"Check", {"check", "--address", "PRINTER", "--sha256", kAnySha256}, kWhileReading, kAnyPacket},
    {"Update",
     {"update", "--address", "PRINTER", "--yes", "--sha256", kAnySha256},
     kBeforeFirmware,
     kAnyPacket},
    // Without a sum the run itself reads the package, to know later that it is still the same. It
    // then greets the printer and leaves it.
    {"TheRunItself", {"update", "--address", "PRINTER", "--yes"}, kBeforeFirmware, kFirmwarePacket},
};

INSTANTIATE_TEST_SUITE_P(By, LargePackageThatIsRead, ::testing::ValuesIn(kReadings),
                         [](const auto& tested) { return std::string(tested.param.name); });

} // namespace
