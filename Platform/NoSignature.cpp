// SPDX-License-Identifier: MIT
// For builds without libsodium: no signature can be verified, so every one is invalid.
#include "Platform/SignatureCheck.h"

namespace signature {

struct RunningSum::State { };

bool isAvailable()
{
    return false;
}

bool isValid(const Signature& /*signature*/, std::span<const unsigned char> /*message*/,
             const Key& /*key*/)
{
    return false;
}

RunningSum::RunningSum() = default;
RunningSum::~RunningSum() = default;

void RunningSum::add(std::span<const unsigned char> /*bytes*/) { }

bool RunningSum::finish(Sum& /*sum*/)
{
    return false;
}

} // namespace signature
