// SPDX-License-Identifier: MIT
#include "UI/Package/PackageFacts.h"
#include "VYM/vymBindInfo.h"
#include "VYM/vymMac.h"
#include "tests/support/Package.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;

// A package that a printer can be updated from.
class WholePackage : public Package {
public:
    WholePackage()
    {
        description({"TGMNAME ACME100", "PRODUCT Updater", "DRIVERNAME ACME PS", "PORTNO 4711",
                     "ENTERTIME 5", "UPDATETIME 60", "ALLOWVERSIONDOWN BOTH",
                     "PLATFORMVERSION MACOS=1040 1060",
                     "VERSION MAIN=0110 main.bin COMPATIBLE=0100 DISPFIRM=\"Main controller\"",
                     "VERSION FAX=0200 fax.bin fax"});
        file("main.bin", imageBytes(100)).file("fax.bin", imageBytes(50));
    }
};

// Writes the package and opens it as the programs do, by its folder.
OpenedPackage opened(Package& package)
{
    package.open();
    return openPackage(package.folder().path().string());
}

// Ends this program where opening a package takes more than a hundred times as long as it should.
class Watchdog {
public:
    Watchdog() { alarm(200); }
    ~Watchdog() { alarm(0); }
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;
};

constexpr std::size_t kMiB = 1024 * 1024;
// Sanitizers walk so much more slowly that a part of the text must do.
constexpr std::size_t kWalked = kMiB / (VYMKIT_TEST_SLOWNESS > 2 ? 16 : 1);

std::string repeated(std::string_view text, std::size_t times)
{
    std::string all;
    all.reserve(text.size() * times);
    for (std::size_t i = 0; i < times; ++i)
        all += text;
    return all;
}

const std::string& thousandRows()
{
    static const auto text = repeated("VERSION M=1 missing.bin\r\n", 1000);
    return text;
}

} // namespace

TEST(PackageFacts, AreWhatTheDescriptionAndTheTableSay)
{
    WholePackage package;
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->folder, package.folder().path().string());
    EXPECT_EQ(facts->model, "ACME100");
    EXPECT_EQ(facts->product, "Updater");
    EXPECT_EQ(facts->driverNames, (std::vector<std::string>{"ACME", "PS"}));
    EXPECT_EQ(facts->portNumber, 4711);
    EXPECT_EQ(facts->enterSeconds, 5);
    EXPECT_EQ(facts->exitSeconds, 0) << "the default";
    EXPECT_EQ(facts->updateSeconds, 60);
    EXPECT_EQ(facts->versionRule, yesno_both);
    EXPECT_EQ(facts->needsEnterOperation, yesno_no) << "the default";
    EXPECT_EQ(facts->lowestSystem, 0x1040);
    EXPECT_EQ(facts->highestSystem, 0x1060);
}

TEST(PackageFacts, NameEachFirmwareInTheOrderOfItsRows)
{
    WholePackage package;
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    ASSERT_EQ(facts->firmware.size(), 2U);
    const auto& first = facts->firmware[0];
    EXPECT_EQ(first.number, 1U);
    EXPECT_EQ(first.name, "MAIN");
    EXPECT_EQ(first.version, "0110");
    EXPECT_EQ(first.displayName, "Main controller");
    EXPECT_EQ(first.displayVersion, "0110") << "what the row does not show is the version itself";
    EXPECT_EQ(first.compatibleVersion, "0100");
    EXPECT_EQ(first.file, "main.bin");
    EXPECT_EQ(first.bytes, 100U);
    const auto& second = facts->firmware[1];
    EXPECT_EQ(second.number, 2U);
    EXPECT_EQ(second.nameInPrinter, "fax");
    EXPECT_EQ(second.compatibleVersion, "");
    EXPECT_EQ(second.bytes, 50U);
}

TEST(PackageFacts, HaveNoHighestSystemWhereTheRowHasOnlyALowestOne)
{
    Package package;
    package.description({"PLATFORMVERSION MACOS=1040", "VERSION MAIN=0110 main.bin"})
        .file("main.bin", "x");
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->lowestSystem, 0x1040);
    EXPECT_FALSE(facts->highestSystem.has_value());
}

TEST(PackageFacts, HaveAHighestSystemOfZeroWhereTheRowSaysSo)
{
    Package package;
    package.description({"PLATFORMVERSION MACOS=0 0", "VERSION MAIN=0110 main.bin"})
        .file("main.bin", "x");
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->lowestSystem, 0);
    EXPECT_EQ(facts->highestSystem, 0) << "the package is for no system";
}

TEST(PackageFacts, ShowTextsWithoutControlCharacters)
{
    Package package;
    package.description({"TGMNAME AC\x1b[2JME", "VERSION MAIN=0110 main.bin"})
        .file("main.bin", "x");
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->model.find('\x1b'), std::string::npos);
    EXPECT_NE(facts->model.find("[2JME"), std::string::npos);
}

TEST(OpenPackage, SaysWhyAPackageIsUnusable)
{
    const struct {
        const char* why;
        Package& (*make)(Package&);
        const char* words;
    } cases[] = {
        {"another magic",
         [](Package& p) -> Package& { return p.description({"PORTNO 1"}).magic("NOTMINE\0"); },
         "is not an update package, or is damaged"},
        {"a single file",
         [](Package& p) -> Package& { return p.description({"VERSION MAIN=1 main.bin"}); },
         "is not an update package, or is damaged"},
        {"no description",
         [](Package& p) -> Package& { return p.file("a.bin", "a").file("b.bin", "b"); },
         "holds no description"},
        {"no firmware",
         [](Package& p) -> Package& { return p.description({"PORTNO 1"}).file("b.bin", "b"); },
         "lists no firmware"},
        {"port 0",
         [](Package& p) -> Package& {
             return p.description({"PORTNO 0", "VERSION MAIN=1 b.bin"}).file("b.bin", "b");
         },
         "port number"},
        {"a port above 65535",
         [](Package& p) -> Package& {
             return p.description({"PORTNO 65536", "VERSION MAIN=1 b.bin"}).file("b.bin", "b");
         },
         "port number"},
    };
    for (const auto& [why, make, words] : cases) {
        SCOPED_TRACE(why);
        Package package;
        const auto result = opened(make(package));
        EXPECT_FALSE(result.package.has_value());
        EXPECT_NE(result.problem.find(words), std::string::npos) << result.problem;
        EXPECT_NE(result.problem.find("vympack check"), std::string::npos) << result.problem;
    }
}

TEST(OpenPackage, SaysWhyTheFileCannotBeReached)
{
    const TempFolder folder;
    fs::create_directory(folder.path() / "empty");
    fs::create_directories(folder.path() / "nested" / "VYMBINDDATA");
    const struct {
        const char* name;
        const char* words;
        PackageFault fault;
    } cases[] = {
        {"missing", "There is no folder", PackageFault::noFolder},
        {"empty", "holds no VYMBINDDATA", PackageFault::notInFolder},
        {"nested", "is not a file", PackageFault::notAFile},
    };
    for (const auto& [name, words, fault] : cases) {
        SCOPED_TRACE(name);
        const auto result = openPackage((folder.path() / name).string());
        EXPECT_FALSE(result.package.has_value());
        EXPECT_EQ(result.reason.fault, fault);
        EXPECT_NE(result.problem.find(words), std::string::npos) << result.problem;
    }
}

TEST(OpenPackage, NamesEveryPlaceWhereItLookedForAPackageWithoutAName)
{
    if (fs::exists("/usr/share/vymkit/VYMBINDDATA"))
        GTEST_SKIP() << "this computer has a package";
    const TempFolder folder;
    fs::create_directory(folder.path() / "bin");
    Package::openFolder((folder.path() / "bin").string());
    const auto result = openPackage(std::nullopt);
    EXPECT_FALSE(result.package.has_value());
    EXPECT_EQ(result.reason.fault, PackageFault::notFound);
    const auto places = "'" + folder / "bin/VYMBINDDATA" + "', '"
        + folder / "share/vymkit/VYMBINDDATA" + "', '/usr/share/vymkit/VYMBINDDATA'.";
    EXPECT_NE(result.problem.find(places), std::string::npos) << result.problem;
}

TEST(OpenPackage, RefusesAFileThatIsNoPackage)
{
    const TempFolder folder;
    folder.write("letter.txt", "Dear printer");
    Package::openFolder(folder.path().string()); // forgets the one that was read
    const auto result = openPackage((folder.path() / "letter.txt").string());
    EXPECT_FALSE(result.package.has_value());
    EXPECT_NE(result.problem.find("letter.txt' is not an update package"), std::string::npos)
        << result.problem;
}

TEST(OpenPackage, TakesAFileOfAnyNameAsWellAsItsFolder)
{
    WholePackage package;
    package.open();
    const auto folder = package.folder().path();
    for (const auto* name : {"VYMBINDDATA", "acme-1.2.vym"}) {
        SCOPED_TRACE(name);
        if (name != std::string("VYMBINDDATA"))
            fs::rename(folder / "VYMBINDDATA", folder / name);
        delete vymBindInfo::Instance(); // as at the start of a program
        const auto result = openPackage((folder / name).string());
        ASSERT_TRUE(result.package.has_value()) << result.problem;
        EXPECT_EQ(result.package->model, "ACME100");
        EXPECT_EQ(result.package->folder, folder.string());
        EXPECT_EQ(result.package->file, (folder / name).string());
    }
    setBundleFile("");
}

TEST(UnfitForUpdate, SaysThatThePackageGivesNoTimeForAFirmware)
{
    for (const auto* row : {"UPDATETIME 0", "EXITTIME 1"}) {
        Package package;
        package.description({"TGMNAME ACME100", "PORTNO 4711", row, "VERSION MAIN=0110 main.bin"})
            .file("main.bin", imageBytes(100));
        const auto facts = opened(package).package;
        ASSERT_TRUE(facts.has_value());
        EXPECT_NE(unfitForUpdate(*facts).find("UPDATETIME"), std::string::npos) << row;
    }
}

TEST(OpenPackage, RefusesAFolderWhoseNameIsLongerThanTheEngineKeeps)
{
    const auto result = openPackage("/" + std::string(5000, 'x'));
    EXPECT_FALSE(result.package.has_value());
    EXPECT_NE(result.problem.find("too long a name"), std::string::npos) << result.problem;
}

TEST(OpenPackage, RefusesMoreFirmwareThanAnyPrinterHas)
{
    std::string text;
    for (int i = 0; i < 1001; ++i)
        text += "VERSION M=1 main.bin\r\n";
    Package package;
    package.file("VYMINFO.txt", text).file("main.bin", "x");
    EXPECT_NE(opened(package).problem.find("more than 1000 firmware"), std::string::npos);
}

TEST(OpenPackage, WalksADescriptionOnceHoweverManyRowsItEndsWith)
{
    const Watchdog watchdog;
    const struct {
        const char* why;
        std::string text;
    } rows[] = {
        {"blank rows", repeated("\r\n", 7 * kWalked)},
        {"carriage returns", std::string(15 * kWalked, '\r') + "\r\n"},
        {"one row of blanks", std::string(15 * kWalked, ' ') + "\r\n"},
        {"rows that begin as keys do", repeated("T\r\nP\r\nV\r\n", kWalked)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Package package;
        package.file("VYMINFO.txt", row.text + thousandRows()).file("main.bin", "x");
        const auto facts = opened(package).package;
        ASSERT_TRUE(facts.has_value());
        EXPECT_EQ(facts->firmware.size(), 1000U);
    }
}

TEST(OpenPackage, WalksATableOnceThatPromisesMoreThanTheFileHolds)
{
    const Watchdog watchdog;
    Package package;
    package.file("VYMINFO.txt", thousandRows()).file("filler", std::string(64 * kMiB, 'x'));
    package.entry("VYMINFO.txt", 0, static_cast<std::uint32_t>(thousandRows().size()));
    package.tableOffset(0).count(0x7FFFFFFF);
    // The first 40 bytes of the file are the table's first entry, and rows that no key owns.
    auto bytes = package.bytes();
    std::string name = "VYMINFO.txt";
    name.resize(32, '\0');
    bytes.replace(0, 32, name);
    bytes.replace(32, 8, std::string("\0\0\0\0\0\x40\0\0", 8)); // 16 KiB from the start on
    package.folder().write("VYMBINDDATA", bytes);
    Package::openFolder(package.folder().path().string());
    const auto facts = openPackage(package.folder().path().string()).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_GT(facts->firmware.size(), 600U);
    for (const auto& firmware : facts->firmware)
        EXPECT_FALSE(firmware.bytes.has_value());
}

TEST(OpenPackage, ReadsARowOfManyShownNamesOnce)
{
    const Watchdog watchdog;
    Package package;
    package
        .file("VYMINFO.txt",
              "VERSION M=1 a.bin DISPVER=" + std::string(20000, '1') + repeated(" A=1", 10000)
                  + "\r\n")
        .file("a.bin", "x");
    const auto facts = opened(package).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(facts->firmware[0].displayVersion.substr(0, 5), "11111");
}

TEST(OpenPackage, HasItsOwnWordsForADescriptionThatIsTooLarge)
{
    Package package;
    package.file("VYMINFO.txt", std::string(16 * kMiB + 1, ' ')).file("main.bin", "x");
    const auto problem = opened(package).problem;
    EXPECT_NE(problem.find("larger than 16 MiB"), std::string::npos) << problem;
    EXPECT_EQ(problem.find("memory"), std::string::npos) << problem;
}

TEST(OpenPackage, RefusesARowThatIsTooLong)
{
    const std::string key = "MODELNAME ";
    const struct {
        std::size_t length;
        bool isUsable;
    } rows[] = {{kLongestRow, true}, {kLongestRow + 1, false}};
    for (const auto& row : rows) {
        Package package;
        package
            .file("VYMINFO.txt",
                  "VERSION M=1 a.bin\r\n" + key + std::string(row.length - key.size(), 'x') + "\r\n"
                      + "#" + std::string(2 * kLongestRow, 'x'))
            .file("a.bin", "x");
        const auto result = opened(package);
        EXPECT_EQ(result.package.has_value(), row.isUsable) << row.length;
        EXPECT_EQ(result.problem.find("more than 65536 bytes") == std::string::npos, row.isUsable);
    }
}

TEST(OpenPackage, StopsWhereTheUserHasHadEnough)
{
    WholePackage package;
    package.open();
    for (int allowed = 0; allowed < 3; ++allowed) {
        int checks = 0;
        PackageRequest request;
        request.path = package.folder().path().string();
        request.shouldStop = [&] { return ++checks > allowed; };
        const auto result = openPackage(request);
        if (checks <= allowed)
            break;
        EXPECT_EQ(result.state, PackageState::stopped) << allowed;
        EXPECT_FALSE(result.package.has_value());
    }
}

TEST(UnfitForUpdate, IsAPackageWithoutItsModelOrWithoutAnImage)
{
    WholePackage whole;
    const auto facts = opened(whole).package;
    ASSERT_TRUE(facts.has_value());
    EXPECT_EQ(unfitForUpdate(*facts), "");

    auto nameless = *facts;
    nameless.model.clear();
    EXPECT_NE(unfitForUpdate(nameless).find("TGMNAME"), std::string::npos);

    Package incomplete;
    incomplete
        .description({"TGMNAME ACME100", "UPDATETIME 1", "VERSION MAIN=0110 main.bin",
                      "VERSION FAX=0200 fax.bin"})
        .file("main.bin", "x")
        .entry("fax.bin", 0, 1'000'000);
    const auto cut = opened(incomplete).package;
    ASSERT_TRUE(cut.has_value());
    EXPECT_FALSE(cut->firmware[1].bytes.has_value());
    const auto problem = unfitForUpdate(*cut);
    EXPECT_NE(problem.find("'fax.bin' of firmware 2 (FAX)"), std::string::npos) << problem;
}
