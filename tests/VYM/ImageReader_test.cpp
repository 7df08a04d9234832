// SPDX-License-Identifier: MIT
#include "VYM/ImageReader.h"
#include "VYM/ProtocolResult.h"
#include "tests/support/Package.h"
#include "tests/support/Printer.h"

#include <gtest/gtest.h>

namespace {

constexpr std::size_t kHead = 60;

class ImageReaderTest : public ::testing::Test {
protected:
    void package(std::size_t size)
    {
        m_image = imageBytes(size);
        m_package.file("other", "x").file("main.bin", m_image).open();
    }
    // The bytes of all pieces, each read ahead or not; m_pieces becomes their number.
    std::string everything(unsigned long pieceSize, bool ahead)
    {
        ImageReader reader;
        EXPECT_EQ(reader.open("main.bin", pieceSize), result::kSuccess);
        std::string all;
        while (reader.end() < reader.size()) {
            EXPECT_TRUE(reader.next());
            EXPECT_EQ(reader.offset(), all.size());
            const auto packet = reader.packet();
            const std::string piece(packet.begin() + kHead, packet.end());
            EXPECT_EQ(reader.sum(), printer::byteSum(piece));
            all += piece;
            ++m_pieces;
            if (ahead)
                reader.run();
        }
        return all;
    }

    Package m_package;
    std::string m_image;
    std::size_t m_pieces = 0;
};

TEST_F(ImageReaderTest, GivesEveryByteOnceWhetherItReadsAheadOrNot)
{
    package(1000);
    for (const unsigned long pieceSize : {1UL, 7UL, 100UL, 999UL, 1000UL, 1001UL, 4000000UL}) {
        for (const bool ahead : {false, true}) {
            SCOPED_TRACE(pieceSize);
            m_pieces = 0;
            EXPECT_TRUE(everything(pieceSize, ahead) == m_image);
            EXPECT_EQ(m_pieces, (1000 + pieceSize - 1) / pieceSize);
        }
    }
}

TEST_F(ImageReaderTest, HasNoPieceForAnEmptyImage)
{
    package(0);
    ImageReader reader;
    EXPECT_EQ(reader.open("main.bin", 100), result::kSuccess);
    EXPECT_EQ(reader.size(), 0U);
    reader.run();
    EXPECT_EQ(reader.end(), 0U);
}

TEST_F(ImageReaderTest, ReadsAheadOncePerPiece)
{
    package(300);
    ImageReader reader;
    reader.open("main.bin", 100);
    reader.run(); // no piece is taken yet
    for (int i = 0; i < 3; ++i) {
        ASSERT_TRUE(reader.next());
        reader.run();
        reader.run(); // like waiting for a reply in several exchanges
    }
    EXPECT_EQ(reader.end(), 300U);
}

TEST_F(ImageReaderTest, RefusesAnIncompleteImage)
{
    Package lying;
    lying.file("other", "x").file("more", "y").entry("main.bin", 0, 5000).open();
    ImageReader reader;
    EXPECT_EQ(reader.open("main.bin", 100), result::kFirmwareUnreadable);
    EXPECT_EQ(reader.open("missing", 100), result::kFirmwareUnreadable);
}

TEST_F(ImageReaderTest, ReportsAnUnreadablePieceAtItsTurn)
{
    package(300);
    ImageReader reader;
    reader.open("main.bin", 100);
    ASSERT_TRUE(reader.next());
    std::filesystem::resize_file(m_package.folder() / "VYMBINDDATA", 150);
    reader.run(); // reads ahead, before it is needed
    EXPECT_FALSE(reader.next());
}

} // namespace
