// SPDX-License-Identifier: MIT
// A printer's identity on the bus, before an updater talks to it: identifiers, texts, the IEEE 1284
// device ID, its interface and pipes; and its behaviour there.
//
// Owns:      plain values; set once before the printer is plugged in.
// Threads:   any, read-only.
// Does no I/O.
#pragma once
#include "Tools/vymprinter/PrinterWire.h"

#include <chrono>
#include <optional>

namespace vymprinter {

constexpr std::uint16_t kDefaultVendor = 0x1209; // shared by projects without one of their own
constexpr std::uint16_t kDefaultProduct = 0x0001; // of that vendor, for tests
constexpr std::uint32_t kBusPacket = 512; // of a bulk pipe at high speed
constexpr std::uint32_t kLongestTake = 16U << 10; // in one request of the bus

struct UsbIdentity {
    std::uint16_t vendor = kDefaultVendor;
    std::uint16_t product = kDefaultProduct;
    bool texts = true; // has maker, product and serial number
    std::string maker = "Virtual";
    std::string productName; // empty: the model's
    std::string serial = "VP0001";
    std::optional<std::string> deviceId; // replaces the generated one
    std::optional<std::uint16_t> deviceIdLength; // claimed, instead of the true one
    bool emptyPacketEnds = true; // an answer of whole packets is followed by an empty one
    std::uint32_t take = kBusPacket; // bytes that it takes from the bus at once
    std::chrono::milliseconds quiet{5000}; // silence after which the updater counts as gone
};

// The answer to GET_DEVICE_ID: the length, including itself, then the text.
[[nodiscard]] Bytes deviceIdReply(const UsbIdentity& identity);

// For FunctionFS: the descriptors of the printer-class interface with bulk-out, bulk-in and
// interrupt-in pipes at full and high speed; and its texts, of which it has none.
[[nodiscard]] Bytes functionDescriptors();
[[nodiscard]] Bytes functionStrings();

} // namespace vymprinter
