// SPDX-License-Identifier: MIT
// Defects of the container and of its entries.
#include "Tools/vympack/ContainerFormat.h"
#include "tests/system/defects/Defective.h"

namespace defects {

namespace {

using namespace vympack::defect;

constexpr std::uint32_t kTooManyEntries = 5000;
constexpr std::size_t kLargeDescription = 16U * 1024 * 1024 + 1;

// A package without a defect, but for the change.
std::function<std::string()> good(std::function<void(Package&)> change)
{
    return [change] { return packed(filesWith(description()), change); };
}

std::string cutOff()
{
    auto bytes = packed(filesWith(description()));
    bytes.pop_back();
    return bytes;
}

// The second entry of such a package, its image, is described as given.
std::string withImageEntry(std::string name, std::uint32_t offset, std::uint32_t size)
{
    const auto text = description();
    return Package().file("VYMINFO.txt", text).entry(std::move(name), offset, size).bytes();
}

std::string withName(const std::string& name)
{
    return packed({{"VYMINFO.txt", description({{"main.img", name}})}, {name, mainImage()}});
}

// A name with these bytes after its NUL.
std::string withPadding()
{
    return packed(
        {{"VYMINFO.txt", description()}, {std::string("main.img\0junk", 13), mainImage()}});
}

void sendsItsDescription(Defective& package)
{
    EXPECT_EQ(package.update()["exit_code"], 0);
    EXPECT_TRUE(package.stored("MAIN.FW") == description());
}

void isNotUnpacked(Defective& package)
{
    Process extract({VYMPACK, "extract", package.file(), "-d", package.folder() / "out"});
    EXPECT_EQ(extract.wait(), 1);
    EXPECT_FALSE(std::filesystem::exists(package.folder() / "evil.img"));
}

void isNotMade(Defective& package)
{
    std::vector<std::string> make{VYMPACK, "make", "-o", package.file()};
    for (const auto& item : std::filesystem::directory_iterator(package.folder().path()))
        make.push_back(item.path().string());
    Process maker(make);
    EXPECT_EQ(maker.wait(), 1) << maker.out();
    EXPECT_FALSE(std::filesystem::exists(package.file()));
}

void sendsNothing(Defective& package)
{
    const auto result = package.update();
    EXPECT_EQ(result["exit_code"], 0) << result;
    EXPECT_EQ(result["firmware"][0]["bytes_total"], 0);
    EXPECT_EQ(package.stored("MAIN.FW"), "");
}

std::vector<Row> trailerRows()
{
    return {
        {"ATrailerOfOtherBytes", kBadTrailer,
         good([](Package& all) { all.magic(std::string_view("VYMBINX\0", 8)); }), isNoPackage},
        {"ATrailerThatIsCutOff", kBadTrailer, cutOff, isNoPackage},
        {"ACountOfZero", kBadCount, good([](Package& all) { all.count(0); }), isNoPackage},
        {"ACountBelowZero", kBadCount, good([](Package& all) { all.count(0xFFFFFFFF); }),
         isNoPackage},
        {"ACountThatNoFileHolds", kBadCount, good([](Package& all) { all.count(kTooManyEntries); }),
         isSentAll},
        {"ATableBehindTheEnd", kTableOutOfBounds,
         good([](Package& all) { all.tableOffset(1'000'000); }), isNoPackage},
        {"ATableThatRunsIntoTheTrailer", kTableOutOfBounds,
         good([](Package& all) { all.count(3); }), isSentAll},
    };
}

std::vector<Row> rangeRows()
{
    const auto end = static_cast<std::uint32_t>(description().size());
    return {
        {"AnImageThatIsNotWhollyThere", kEntryOutOfBounds,
         [=] { return withImageEntry("main.img", end, 1'000'000); }, isNotSent},
        {"AnImageThatOverlapsTheDescription", kEntryOverlap,
         [=] { return withImageEntry("main.img", 0, end); }, sendsItsDescription},
    };
}

std::vector<Row> nameRows()
{
    const std::string longName(32, 'n');
    return {
        {"ANameWithoutItsNul", kNameNotTerminated, [=] { return withName(longName); }, isSentAll},
        {"ANameWithOtherBytesAfterItsNul", kNamePadding, withPadding, isSentAll},
        {"AnEmptyName", kNameEmpty, good([](Package& all) { all.entry("", 0, 0); }), isSentAll},
        {"ANameThatLeavesTheFolder",
         kNameUnsafe,
         [] {
             return packed({{"VYMINFO.txt", description()},
                            {"main.img", mainImage()},
                            {"../evil.img", "outside"}});
         },
         isNotUnpacked,
         {"image-unused"}},
        {"TwoFilesOfOneName", kDuplicateName,
         [] {
             return packed({{"VYMINFO.txt", description()},
                            {"main.img", mainImage()},
                            {"main.img", "the second of that name"}});
         },
         isSentAll},
        {"ASingleFile",
         kSingleEntry,
         [] {
             return packed({{"VYMINFO.txt", description()}});
         },
         isNoPackage,
         {"image-missing"}},
        {"NoDescription", kNoDescription,
         [] {
             return packed({{"main.img", mainImage()}, {"other.img", "x"}});
         },
         isNoPackage},
        {"ADescriptionOfMoreThan16MiB", kDescriptionTooLarge,
         [] { return packed(filesWith(description() + std::string(kLargeDescription, ' '))); },
         isNoPackage},
        {"AnImageOfZeroBytes", kEmptyImage,
         [] {
             return packed({{"VYMINFO.txt", description()}, {"main.img", ""}});
         },
         sendsNothing},
    };
}

// Defects of what a package would be made from.
std::vector<Row> folderRows()
{
    const std::string longName(32, 'n');
    const auto describing = [](const std::string& image) {
        return [image] { return description({{"main.img", image}}); };
    };
    return {
        {"ANameOf32Bytes", kNameTooLong, describing(longName), isNotMade, {}, longName, 8},
        {"APackageOfMoreThan4GiB",
         kPackageTooLarge,
         describing("main.img"),
         isNotMade,
         {},
         "main.img",
         vympack::kMostBytes},
    };
}

} // namespace

std::vector<Row> containerRows()
{
    auto all = trailerRows();
    for (const auto& more : {rangeRows(), nameRows(), folderRows()})
        for (const auto& row : more)
            all.push_back(row);
    return all;
}

} // namespace defects
