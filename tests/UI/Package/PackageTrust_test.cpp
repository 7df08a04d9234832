// SPDX-License-Identifier: MIT
// Packages signed with the real minisign, and all possible faults of a signature.
#include "UI/Package/PackageFacts.h"
#include "tests/support/Package.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

constexpr const char* kComment = "Vymprint 200, release 1.2.10";

class Trust : public testing::Test {
protected:
    Trust()
    {
        m_package.description({"TGMNAME A", "VERSION MAIN=0110 main.bin"})
            .file("main.bin", imageBytes(50000));
        m_package.folder().write("VYMBINDDATA", m_package.bytes());
        fs::create_directory(keyFolder());
        makeKey("maker");
        makeKey("other");
    }
    static void run(const std::string& command)
    {
        ASSERT_EQ(std::system(("minisign " + command + " >/dev/null").c_str()), 0) << command;
    }
    void makeKey(const std::string& name) const
    {
        run("-G -W -p " + publicKey(name) + " -s " + m_keys / (name + ".key"));
    }
    void sign(const std::string& name = "maker", const std::string& options = "") const
    {
        run("-S -s " + m_keys / (name + ".key") + " -m " + container() + " -t '" + kComment + "' "
            + options);
    }
    // Makes this a key that the administrator trusts.
    void trust(const std::string& name) const
    {
        fs::copy_file(publicKey(name), keyFolder() / (name + ".pub"));
    }
    [[nodiscard]] std::string publicKey(const std::string& name) const
    {
        return m_keys / (name + ".pub");
    }
    [[nodiscard]] fs::path keyFolder() const { return m_keys.path() / "trusted"; }
    [[nodiscard]] std::string container() const { return m_package.folder() / "VYMBINDDATA"; }

    OpenedPackage open(const std::string& key = "", const std::string& sha256 = "")
    {
        const auto folder = m_package.folder().path().string();
        Package::openFolder(folder);
        PackageRequest request;
        request.path = folder;
        request.trust = {sha256, key, keyFolder().string(), m_wantsSum};
        return openPackage(request);
    }
    void expectRefused(const OpenedPackage& opened, const std::string& words)
    {
        EXPECT_EQ(opened.state, PackageState::notTrusted);
        EXPECT_FALSE(opened.package.has_value());
        EXPECT_THAT(opened.problem, HasSubstr(words));
        EXPECT_FALSE(vymbind_isContainer()) << "nothing of it can be sent";
        std::string name;
        EXPECT_FALSE(vyminfo_getTgmName(name)) << "nothing of it can be shown";
    }
    void expectTrusted(const OpenedPackage& opened, const std::string& key)
    {
        ASSERT_TRUE(opened.package.has_value()) << opened.problem;
        ASSERT_TRUE(opened.package->signature.has_value());
        EXPECT_EQ(opened.package->signature->key, key);
        EXPECT_EQ(opened.package->signature->comment, kComment);
        EXPECT_TRUE(vymBindInfo::Instance()->isSealed()) << "what was checked is what is sent";
    }

    Package m_package;
    TempFolder m_keys;
    bool m_wantsSum = false;
};

} // namespace

TEST_F(Trust, IsNotCheckedWithoutAKey)
{
    const auto opened = open();
    ASSERT_TRUE(opened.package.has_value()) << opened.problem;
    EXPECT_FALSE(opened.package->signature.has_value());
    fs::remove(keyFolder());
    EXPECT_TRUE(open().package.has_value());
}

TEST_F(Trust, IsProvedByTheAdministratorsKey)
{
    trust("maker");
    trust("other");
    sign();
    expectTrusted(open(), "maker.pub");
}

TEST_F(Trust, IsProvedByAKeyGivenAsAFileOrAsItsText)
{
    sign();
    expectTrusted(open(publicKey("maker")), "maker.pub");
    auto text = readFile(publicKey("maker"));
    text = text.substr(text.find('\n') + 1);
    expectTrusted(open(text.substr(0, text.find('\n'))), "the given key");
}

TEST_F(Trust, IsTheGivenKeysAlone)
{
    trust("maker");
    sign();
    expectRefused(open(publicKey("other")), "is of no trusted key");
}

TEST_F(Trust, RefusesAPackageWithoutASignature)
{
    trust("maker");
    expectRefused(open(), "is not signed");
    expectRefused(open(publicKey("other")), "other.pub");
}

TEST_F(Trust, RefusesASignatureOfAnotherKey)
{
    trust("maker");
    sign("other");
    expectRefused(open(), "is of no trusted key");
}

TEST_F(Trust, GivesTheSumOfAPackageWhereThatIsWanted)
{
    EXPECT_EQ(open().package->sha256, "") << "nothing has read it to its end";
    m_wantsSum = true;
    const auto sum = open().package->sha256;
    EXPECT_EQ(sum.size(), 64U);
    EXPECT_TRUE(vymBindInfo::Instance()->isSealed());
    m_wantsSum = false;
    EXPECT_EQ(open("", sum).package->sha256, sum);
    m_wantsSum = true;
    expectRefused(open("", std::string(64, '0')), "not the expected one");
    trust("maker");
    expectRefused(open(), "is not signed");
    sign();
    expectTrusted(open(), "maker.pub");
    EXPECT_EQ(open().package->sha256, sum);
}

TEST_F(Trust, RefusesAPackageThatWasChanged)
{
    trust("maker");
    sign();
    auto bytes = m_package.bytes();
    for (const std::size_t at : {std::size_t{0}, bytes.size() / 2, bytes.size() - 1}) {
        auto changed = bytes;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        m_package.folder().write("VYMBINDDATA", changed);
        const auto opened = open();
        EXPECT_FALSE(opened.package.has_value()) << at;
    }
    m_package.folder().write("VYMBINDDATA", bytes);
    expectTrusted(open(), "maker.pub");
}

TEST_F(Trust, RefusesASignatureWithAnyByteChanged)
{
    trust("maker");
    sign();
    const auto path = container() + ".minisig";
    const auto whole = readFile(path);
    // The first line is an unsigned comment.
    for (auto at = whole.find('\n'); at < whole.size(); ++at) {
        auto changed = whole;
        changed[at] = changed[at] == 'A' ? 'B' : 'A';
        m_package.folder().write("VYMBINDDATA.minisig", changed);
        ASSERT_EQ(open().state, PackageState::notTrusted) << at << changed;
    }
}

TEST_F(Trust, RefusesASignatureThatCannotBeRead)
{
    trust("maker");
    for (const auto& text : {std::string(), std::string(70000, 'x'), std::string("a\nb\nc\nd\n")}) {
        m_package.folder().write("VYMBINDDATA.minisig", text);
        expectRefused(open(), "cannot be read");
    }
    fs::remove(container() + ".minisig");
    fs::create_directory(container() + ".minisig");
    expectRefused(open(), "cannot be read");
}

TEST_F(Trust, RefusesTheOldForm)
{
    trust("maker");
    sign("maker", "-l");
    expectRefused(open(), "old form");
}

TEST_F(Trust, RefusesEveryPackageWhereTheOnlyKeyCannotBeRead)
{
    sign();
    std::ofstream(keyFolder() / "broken.pub") << "no key\n";
    std::ofstream(keyFolder() / "README") << "passed over\n";
    expectRefused(open(), "broken.pub (which is no key that can be read)");
    trust("maker");
    expectTrusted(open(), "maker.pub");
    expectRefused(open("neither a file nor a key"), "the given key (which is no key");
}

TEST_F(Trust, RefusesEveryPackageIfTheKeysFolderIsNoFolder)
{
    fs::remove(keyFolder());
    std::ofstream(keyFolder()) << "a file\n";
    sign();
    expectRefused(open(), "cannot be read");
}

TEST_F(Trust, IsTheSha256sWhereOneIsGiven)
{
    const auto bytes = m_package.bytes();
    auto digest = Sha256::toHex(
        Sha256::of({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}));
    auto opened = open("", digest);
    ASSERT_TRUE(opened.package.has_value()) << opened.problem;
    EXPECT_TRUE(vymBindInfo::Instance()->isSealed());
    auto other = digest;
    other[63] = other[63] == '0' ? '1' : '0';
    expectRefused(open("", other), "its SHA-256 is " + digest);
    expectRefused(open("", "no digest"), "its SHA-256 is " + digest);
    expectRefused(open(publicKey("maker"), digest), "is not signed");
}

TEST_F(Trust, IsNotDecidedWhereTheUserStops)
{
    trust("maker");
    sign();
    Package::openFolder(m_package.folder().path().string());
    PackageRequest request;
    request.path = m_package.folder().path().string();
    request.trust.keyFolder = keyFolder().string();
    int checks = 0;
    request.shouldStop = [&] { return ++checks > 2; };
    const auto opened = openPackage(request);
    EXPECT_EQ(opened.state, PackageState::stopped);
    EXPECT_FALSE(opened.package.has_value());
}
