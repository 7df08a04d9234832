// SPDX-License-Identifier: MIT
// The two cryptographic operations for signed packages: a BLAKE2b-512 sum of bytes and the
// verification of an Ed25519 signature. Higher floors handle the text files of signatures.
//
// Owns:    a running sum owns its state.
// Threads: any; one object at a time.
// Fails closed: if the library is missing or does not start, no signature is valid.
#pragma once
#include <array>
#include <cstddef>
#include <memory>
#include <span>

namespace signature {

using Sum = std::array<unsigned char, 64>; // BLAKE2b-512
using Signature = std::array<unsigned char, 64>; // Ed25519
using Key = std::array<unsigned char, 32>; // its public half

// Whether this program can verify signatures at all.
bool isAvailable();
// True only if this is proved to be the key's signature over the whole message.
bool isValid(const Signature& signature, std::span<const unsigned char> message, const Key& key);

// Computes the sum of bytes that arrive in parts.
class RunningSum {
public:
    RunningSum();
    ~RunningSum();
    RunningSum(const RunningSum&) = delete;
    RunningSum& operator=(const RunningSum&) = delete;

    void add(std::span<const unsigned char> bytes);
    // False if the sum could not be computed. The object must not be used afterwards.
    bool finish(Sum& sum);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace signature
