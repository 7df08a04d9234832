// The two cryptographic operations behind a signed package: a BLAKE2b-512 sum of its bytes and the
// check of an Ed25519 signature. Everything else about signatures is plain text and stands above.
//
// Owns:    a running sum owns its state.
// Threads: any; one object at a time.
// Fails closed: where the library is missing or does not start, no signature is ever valid.
#pragma once
#include <array>
#include <cstddef>
#include <memory>
#include <span>

namespace signature {

using Sum = std::array<unsigned char, 64>; // BLAKE2b-512
using Signature = std::array<unsigned char, 64>; // Ed25519
using Key = std::array<unsigned char, 32>; // its public half

// Whether signatures can be checked at all in this program.
bool isAvailable();
// True only where the signature was proved to be this key's over the whole message.
bool isValid(const Signature& signature, std::span<const unsigned char> message, const Key& key);

// The sum of bytes that arrive in parts.
class RunningSum {
public:
    RunningSum();
    ~RunningSum();
    RunningSum(const RunningSum&) = delete;
    RunningSum& operator=(const RunningSum&) = delete;

    void add(std::span<const unsigned char> bytes);
    // False where the sum could not be taken. The object is not to be used any more.
    bool finish(Sum& sum);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace signature
