// SPDX-License-Identifier: MIT
// The tags of an IPP message (RFC 8010) that the query for print queues and its answer use.
//
// Threads:   any; constants.
#pragma once
#include <cstdint>

namespace ipp {

enum Tag : std::uint8_t {
    kOperationGroup = 0x01,
    kEndOfAttributes = 0x03,
    kPrinterGroup = 0x04,
    kLastDelimiter = 0x0F, // tags up to this one begin a group and have no value
    kEnum = 0x23,
    kTextWithLanguage = 0x35,
    kNameWithLanguage = 0x36,
    kText = 0x41,
    kName = 0x42,
    kKeyword = 0x44,
    kUri = 0x45,
    kCharset = 0x47,
    kLanguage = 0x48,
};

} // namespace ipp
