// SPDX-License-Identifier: MIT
// The engine reads only bytes that were checked, even if the file changes meanwhile.
#include "VYM/ImageReader.h"
#include "VYM/ProtocolResult.h"
#include "tests/VYM/ContainerFixture.h"
#include "tests/support/FailingMemory.h"
#include "tests/support/ProtocolFixture.h"

#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr auto kPart = ContainerSeal::kPart;

class Seal : public testing::Test {
protected:
    // A container with an image of several parts.
    void open(std::size_t size = 3 * kPart + 100)
    {
        m_image = imageBytes(size);
        m_package.file("main.bin", m_image).file("other", "x").open();
    }
    // Overwrites the open file, like a copying program.
    void overwrite(std::size_t at, char byte)
    {
        const auto path = m_package.folder() / "VYMBINDDATA";
        const int file = ::open(path.c_str(), O_WRONLY);
        ASSERT_EQ(pwrite(file, &byte, 1, static_cast<off_t>(at)), 1);
        close(file);
    }
    static bool readable(std::size_t at, unsigned long length, std::string* bytes = nullptr)
    {
        std::string buffer(length, '#');
        const bool read =
            container().readSealed(at, reinterpret_cast<unsigned char*>(buffer.data()), length);
        if (bytes != nullptr)
            *bytes = buffer;
        return read;
    }

    Package m_package;
    std::string m_image;
};

class SealedUpdate : public ProtocolFixture { };

} // namespace

TEST_F(Seal, DeliversEveryRangeOfAnUnchangedFile)
{
    open();
    for (const std::size_t at : {std::size_t{0}, kPart - 1, kPart, 2 * kPart + 5}) {
        for (const unsigned long length : {0UL, 1UL, 2UL, kPart, kPart + 1}) {
            std::string bytes;
            ASSERT_TRUE(readable(at, length, &bytes)) << at << ' ' << length;
            EXPECT_TRUE(bytes == m_image.substr(at, length)) << at << ' ' << length;
        }
    }
}

TEST_F(Seal, IsNotTakenWithoutMemory)
{
    const ContainerSeal::Read zeros = [](std::uint64_t /*at*/, unsigned char* to,
                                         unsigned long length) {
        std::fill_n(to, length, static_cast<unsigned char>(0));
        return true;
    };
    ContainerSeal seal;
    bool isTaken = true;
    {
        const MemoryShortage shortage(0);
        isTaken = seal.take(10, zeros, {});
    }
    EXPECT_FALSE(isTaken);
    EXPECT_FALSE(seal.isTaken());
    EXPECT_TRUE(seal.take(10, zeros, {})) << "as soon as there is memory again";
}

TEST_F(Seal, DeliversNoByteOfAPartThatChanged)
{
    open();
    ASSERT_TRUE(container().seal());
    overwrite(kPart + 7, 'X');
    EXPECT_TRUE(readable(0, kPart));
    EXPECT_FALSE(readable(kPart, 1)) << "its part was changed";
    EXPECT_FALSE(readable(kPart - 1, 2)) << "the second byte's";
    EXPECT_TRUE(readable(2 * kPart, 10));
    overwrite(kPart + 7, m_image[kPart + 7]);
    EXPECT_TRUE(readable(kPart, 1)) << "it is again what it was";
}

TEST_F(Seal, ComparesTheFirstBytesWithTheFile)
{
    open();
    EXPECT_FALSE(container().isSealed());
    ASSERT_TRUE(container().seal());
    EXPECT_TRUE(container().isSealed());
    overwrite(0, static_cast<char>(m_image[0] + 1));
    EXPECT_TRUE(container().seal()) << "the seal that is there stays";
    EXPECT_FALSE(readable(0, 1));
}

TEST_F(Seal, EndsAtTheContainersEnd)
{
    open(10);
    const auto size = container().containerSize();
    EXPECT_TRUE(readable(0, size));
    EXPECT_TRUE(readable(size, 0));
    EXPECT_FALSE(readable(0, size + 1));
    EXPECT_FALSE(readable(size + 1, 0));
    EXPECT_FALSE(container().readSealed(0, nullptr, 1));
}

TEST_F(Seal, ShowsEveryByteInOrderToItsWatch)
{
    open();
    std::string seen;
    ASSERT_TRUE(container().seal([&](std::span<const unsigned char> part) {
        seen.append(part.begin(), part.end());
        return true;
    }));
    EXPECT_TRUE(seen == m_package.bytes());
}

TEST_F(Seal, IsNotMadeIfTheWatchEndsIt)
{
    open();
    int parts = 0;
    EXPECT_FALSE(container().seal([&](auto /*part*/) { return ++parts < 2; }));
    EXPECT_EQ(parts, 2);
    EXPECT_FALSE(container().isSealed());
}

TEST_F(Seal, IsNotMadeForAClosedContainer)
{
    const TempFolder folder;
    Package::openFolder(folder.path().string());
    EXPECT_FALSE(container().seal());
    EXPECT_FALSE(readable(0, 1));
    EXPECT_EQ(container().containerSize(), 0U);
}

TEST_F(Seal, NoticesThatTheFileWasCut)
{
    open();
    ASSERT_TRUE(container().seal());
    std::filesystem::resize_file(m_package.folder() / "VYMBINDDATA", 2 * kPart);
    EXPECT_TRUE(readable(kPart, kPart));
    EXPECT_FALSE(readable(2 * kPart, 1));
}

TEST_F(Seal, KeepsThePieceThatChangedFromBeingRead)
{
    open();
    ImageReader reader;
    ASSERT_EQ(reader.open("main.bin", kPart), result::kSuccess);
    ASSERT_TRUE(reader.next());
    overwrite(m_image.size() - 1, static_cast<char>(m_image.back() + 1));
    ASSERT_TRUE(reader.next());
    ASSERT_TRUE(reader.next());
    EXPECT_FALSE(reader.next()) << "the last piece";
}

TEST_F(SealedUpdate, EndsBeforeTheLastBlockWhereThePackageIsWrittenOver)
{
    package({"TGMNAME MODEL-A", "UPDATETIME 30", "ALLOWVERSIONDOWN NO"}, 1000);
    open();
    tell(targetInfo());
    const auto path = m_package->folder() / "VYMBINDDATA";
    int pieces = 0;
    m_script.answerWith([&](const std::string&) {
        if (++pieces == 3) { // the same file, the same length, another version
            auto other = m_package->bytes();
            for (std::size_t i = 0; i < 2000 && i < other.size() - 200; ++i)
                other[i] = static_cast<char>(other[i] ^ 1);
            std::ofstream(path, std::ios::binary | std::ios::in)
                .write(other.data(), static_cast<std::streamsize>(other.size()));
        }
        return printer::piece();
    });
    EXPECT_EQ(update(), -8);
    EXPECT_GE(filePackets().size(), 3U);
    EXPECT_LT(filePackets().size(), 10U) << "the tenth would have been the last";
}
