// SPDX-License-Identifier: MIT
// A printer's replies as bytes, for tests that script its side of the conversation.
#pragma once
#include "tests/support/Package.h"

#include <cstdint>
#include <string>

namespace printer {

inline std::string number(std::uint32_t value, int bytes)
{
    std::string text;
    for (int i = bytes - 1; i >= 0; --i)
        text += static_cast<char>(value >> (8 * i) & 0xFF);
    return text;
}

// A reply to that command with this body.
inline std::string reply(std::uint16_t code, const std::string& body)
{
    return number(0, 2) + number(code, 2) + number(static_cast<std::uint32_t>(body.size()), 4)
        + body;
}

inline std::string statusReply(std::uint16_t code, std::uint16_t status)
{
    return reply(code, number(0, 2) + number(status, 2));
}

inline std::string enter(std::uint16_t status = 0x80)
{
    return statusReply(0x5101, status);
}
inline std::string exit()
{
    return statusReply(0x5102, 0x80);
}
inline std::string piece(std::uint16_t status = 0x81)
{
    return statusReply(0x5002, status);
}

inline std::string progress(std::uint16_t status, std::uint32_t total, std::uint32_t done)
{
    return reply(0x5103, number(0, 2) + number(status, 2) + number(total, 4) + number(done, 4));
}

inline std::uint16_t byteSum(const std::string& bytes)
{
    unsigned sum = 0;
    for (const char byte : bytes)
        sum += static_cast<unsigned char>(byte);
    return static_cast<std::uint16_t>(sum);
}

struct Block {
    std::uint16_t status = 0x80;
    std::uint32_t offset = 0;
    std::uint32_t total = 0;
    std::uint16_t checkSum = 0;
    std::string data{};
};

inline std::string fileBlock(const Block& block)
{
    return reply(0x5001,
                 number(0, 2) + number(block.status, 2) + number(block.offset, 4)
                     + number(block.total, 4) + number(block.checkSum, 2) + number(0, 2)
                     + number(static_cast<std::uint32_t>(block.data.size()), 4) + block.data);
}

// A whole file in a single block.
inline std::string file(const std::string& text)
{
    return fileBlock({0x80, 0, static_cast<std::uint32_t>(text.size()), byteSum(text), text});
}

} // namespace printer
