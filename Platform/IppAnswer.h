// A print server's answer to the question for its queues, as the bytes of an IPP message (RFC
// 8010). Reads attributes one after the other and never goes into nested collections, which a
// hostile server could nest deeper than any stack.
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
    std::uint16_t status = 0; // as RFC 8011 numbers them
    std::vector<PrintQueue> queues; // in the server's order
};

// Far beyond the largest site; bounds what a server can make us keep.
constexpr std::size_t kMostQueues = 20000;
constexpr std::size_t kLongestAnswer = std::size_t{8} * 1024 * 1024;

// False for bytes that are no whole answer or go beyond a bound; answer is then empty.
bool readIppAnswer(std::string_view bytes, IppAnswer& answer);
