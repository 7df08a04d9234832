#include "Tools/vympack/Sha256.h"

#include <gtest/gtest.h>

using vympack::Sha256;

TEST(VympackSha256, GivesThePublishedDigests)
{
    const struct {
        const char* why;
        std::string text;
        const char* digest;
    } rows[] = {
        {"empty", "", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
        {"one block", "abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
        {"a length that needs a block of its own",
         "abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
         "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
        {"55 bytes", std::string(55, 'x'),
         "d5e285683cd4efc02d021a5c62014694958901005d6f71e89e0989fac77e4072"},
        {"56 bytes", std::string(56, 'x'),
         "04c26261370ee7541549d16dee320c723e3fd14671e66a099afe0a377c16888e"},
        {"a whole block", std::string(64, 'x'),
         "7ce100971f64e7001e8fe5a51973ecdfe1ced42befe7ee8d5fd6219506b5393c"},
        {"a million", std::string(1'000'000, 'a'),
         "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Sha256 digest;
        digest.add(row.text.data(), row.text.size());
        EXPECT_EQ(digest.finish(), row.digest);
    }
}

TEST(VympackSha256, PiecesGiveTheDigestOfTheWhole)
{
    const std::string text(1000, 'p');
    Sha256 whole;
    whole.add(text.data(), text.size());
    const auto expected = whole.finish();
    for (const std::size_t piece : {1U, 3U, 63U, 64U, 65U, 999U}) {
        Sha256 digest;
        for (std::size_t at = 0; at < text.size(); at += piece)
            digest.add(text.data() + at, std::min(piece, text.size() - at));
        EXPECT_EQ(digest.finish(), expected) << piece;
    }
}
