// SPDX-License-Identifier: MIT
#include "UI/Package/PackagePlace.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

// An installation: a program in bin, its data in share/vymkit, all users' data in data.
class Installation {
public:
    Installation()
    {
        for (const char* folder : {"bin", "share/vymkit", "data", "stick"})
            fs::create_directories(m_folder.path() / folder);
    }
    [[nodiscard]] std::string path(const std::string& name) const
    {
        return (m_folder.path() / name).string();
    }
    Installation& put(const std::string& name)
    {
        m_folder.write(name, "a package");
        return *this;
    }
    [[nodiscard]] PackagePlace find(const std::optional<std::string>& given = std::nullopt) const
    {
        return findPackage(given, path("bin"), path("data"));
    }

private:
    TempFolder m_folder;
};

} // namespace

TEST(PackagePlace, IsBesideTheProgramBeforeAnywhereElse)
{
    Installation place;
    place.put("data/VYMBINDDATA").put("share/vymkit/VYMBINDDATA").put("bin/VYMBINDDATA");
    EXPECT_EQ(place.find().folder, place.path("bin"));
    EXPECT_EQ(place.find().file, place.path("bin/VYMBINDDATA"));
}

TEST(PackagePlace, IsInTheInstallationsOwnDataBeforeThatOfAllUsers)
{
    Installation place;
    place.put("data/VYMBINDDATA").put("share/vymkit/VYMBINDDATA");
    EXPECT_EQ(fs::weakly_canonical(place.find().folder), place.path("share/vymkit"));
}

TEST(PackagePlace, IsInTheDataOfAllUsersWhereNothingIsNearer)
{
    Installation place;
    place.put("data/VYMBINDDATA");
    EXPECT_EQ(place.find().folder, place.path("data"));
    EXPECT_EQ(place.find().file, place.path("data/VYMBINDDATA"));
}

TEST(PackagePlace, IsBesideTheProgramWhereNoPlaceHasOne)
{
    const Installation place;
    EXPECT_EQ(place.find().folder, place.path("bin"));
}

TEST(PackagePlace, IsTheNamedFolderWhateverLiesBesideTheProgram)
{
    Installation place;
    place.put("bin/VYMBINDDATA").put("stick/VYMBINDDATA");
    const auto found = place.find(place.path("stick"));
    EXPECT_EQ(found.folder, place.path("stick"));
    EXPECT_EQ(found.file, place.path("stick/VYMBINDDATA"));
    EXPECT_FALSE(found.isOtherName);
}

TEST(PackagePlace, IsTheNamedFileWhateverItsName)
{
    Installation place;
    place.put("stick/office 1.2.vymbind");
    const auto found = place.find(place.path("stick/office 1.2.vymbind"));
    EXPECT_EQ(found.folder, place.path("stick"));
    EXPECT_EQ(found.file, place.path("stick/office 1.2.vymbind"));
    EXPECT_TRUE(found.isOtherName);
}

TEST(PackagePlace, OfAFileNamedWithoutItsFolderIsTheWorkingFolder)
{
    const auto before = fs::current_path();
    Installation place;
    place.put("stick/a.vymbind");
    fs::current_path(place.path("stick"));
    const auto found = place.find("a.vymbind");
    fs::current_path(before);
    EXPECT_EQ(found.folder, ".");
    EXPECT_EQ(found.file, "a.vymbind");
}

TEST(PackagePlace, IsTheFolderOfANameThatDoesNotExist)
{
    const Installation place;
    EXPECT_EQ(place.find(place.path("missing")).folder, place.path("missing"));
    EXPECT_EQ(place.find(place.path("stick")).file, place.path("stick/VYMBINDDATA"));
}

TEST(PackagePlace, IsSearchedForInEachFolderOnce)
{
    EXPECT_EQ(searchedFolders("/opt/vymkit/bin", "/usr/share/vymkit"),
              (std::vector<std::string>{"/opt/vymkit/bin", "/opt/vymkit/share/vymkit",
                                        "/usr/share/vymkit"}));
    EXPECT_EQ(searchedFolders("/usr/bin", "/usr/share/vymkit"),
              (std::vector<std::string>{"/usr/bin", "/usr/share/vymkit"}));
}

TEST(PackagePlace, OfAProgramInAnUnknownFolderIsNeverTheRootOfTheDisk)
{
    EXPECT_EQ(searchedFolders("", "/usr/share/vymkit"),
              std::vector<std::string>{"/usr/share/vymkit"});
}
