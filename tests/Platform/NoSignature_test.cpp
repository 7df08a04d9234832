// SPDX-License-Identifier: MIT
// A program without the library can prove no signature, so it trusts none.
#include "Platform/SignatureCheck.h"

#include <gtest/gtest.h>

TEST(NoSignature, NeverCallsASignatureValid)
{
    EXPECT_FALSE(signature::isAvailable());
    EXPECT_FALSE(signature::isValid({}, {}, {}));
    signature::RunningSum sum;
    const unsigned char byte = 'x';
    sum.add({&byte, 1});
    signature::Sum found{};
    EXPECT_FALSE(sum.finish(found));
}
