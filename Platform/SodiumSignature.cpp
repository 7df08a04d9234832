// SPDX-License-Identifier: MIT
// Signatures with libsodium.
#include "Platform/SignatureCheck.h"

#include <cassert>
#include <sodium.h>

namespace signature {

static_assert(crypto_sign_BYTES == std::tuple_size_v<Signature>);
static_assert(crypto_sign_PUBLICKEYBYTES == std::tuple_size_v<Key>);
static_assert(crypto_generichash_BYTES_MAX == std::tuple_size_v<Sum>);

struct RunningSum::State {
    crypto_generichash_state sum{};
    bool isSound = false; // every step so far has succeeded
    bool isFinished = false;
};

bool isAvailable()
{
    return sodium_init() >= 0; // 1 if it was already started
}

bool isValid(const Signature& signature, std::span<const unsigned char> message, const Key& key)
{
    return isAvailable()
        && crypto_sign_verify_detached(signature.data(), message.data(), message.size(), key.data())
        == 0;
}

RunningSum::RunningSum() : m_state(std::make_unique<State>())
{
    m_state->isSound = isAvailable()
        && crypto_generichash_init(&m_state->sum, nullptr, 0, std::tuple_size_v<Sum>) == 0;
}

RunningSum::~RunningSum() = default;

void RunningSum::add(std::span<const unsigned char> bytes)
{
    assert(!m_state->isFinished);
    m_state->isSound = m_state->isSound
        && crypto_generichash_update(&m_state->sum, bytes.data(), bytes.size()) == 0;
}

bool RunningSum::finish(Sum& sum)
{
    assert(!m_state->isFinished);
    m_state->isFinished = true;
    return m_state->isSound && crypto_generichash_final(&m_state->sum, sum.data(), sum.size()) == 0;
}

} // namespace signature
