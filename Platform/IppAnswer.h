// SPDX-License-Identifier: MIT
// Parses a print server's answer to the query for its queues, an IPP message (RFC 8010). Reads
// attributes in sequence and never recurses into collections, which a hostile server could nest
// deeper than any stack.
//
// Owns:      its texts, by value.
// Threads:   any. A pure function of the bytes; may throw std::bad_alloc.
// Invariant: no more queues than kMostQueues, each with an identifier; no text with a NUL in it.
#pragma once
#include "Platform/PrintServer.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

struct IppAnswer {
    std::uint16_t status = 0; // a status code of RFC 8011
    std::vector<PrintQueue> queues; // in the server's order
};

// Far beyond the largest site; bounds the memory that a server can make us use.
constexpr std::size_t kMostQueues = 20000;
constexpr std::size_t kLongestAnswer = std::size_t{8} * 1024 * 1024;

// False if the bytes are not a complete answer or exceed a bound; answer is then empty.
bool readIppAnswer(std::string_view bytes, IppAnswer& answer);
