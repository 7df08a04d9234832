// SPDX-License-Identifier: MIT
// The kind of printer: its model, its firmware, its limits and its behaviour without faults; and
// the "TargetInfo.txt" that reports this to an updater.
//
// Owns:      plain values; set once before the printer is switched on.
// Threads:   any, read-only.
// Does not know about faults: those change reports about the printer, not the printer.
#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vymprinter {

using Millis = std::chrono::milliseconds;

constexpr std::string_view kTargetInfoName = "TargetInfo.txt"; // the only file that it sends
// The largest reply that an updater can receive before it has read MAXPACKET.
constexpr std::uint32_t kFirstReplyLimit = 4096;
constexpr std::uint32_t kSmallestPacket = 61; // a send-file head and one byte of firmware
constexpr std::uint32_t kLargestPacket = 64U << 20; // the most that this program keeps in memory
constexpr std::uint32_t kSmallestBlock = 29; // a file-block head and one byte of text

// The pieces of firmware that the printer acknowledges; errors are always reported.
// "tenths": the last piece and the first one of each new tenth of its file, like printers on the
// bus, where updaters wait for no others.
enum class Replies { every, last, none, tenths };

struct FirmwareVersion {
    std::string name;
    std::string version;
};

struct PrinterModel {
    std::string name = "Model 100";
    std::vector<FirmwareVersion> firmware = {{"MAIN", "01.00"}};
    std::uint32_t maxPacket = 65536;
    bool statusQuery = true; // answers 0x5103 and lists it
    Replies replies = Replies::every;
    Millis replyDelay{0};
    Millis pieceTime{0}; // for which it works on each packet with firmware, without reading
    std::uint32_t blockSize = kFirstReplyLimit;
    std::uint64_t writeRate = 0; // bytes per second; 0 writes at once
    std::optional<Millis> restart; // how long it is away after an update; empty: it stays
    std::vector<FirmwareVersion> updated; // what it has after that restart, besides the rest
    std::optional<std::string> targetInfo; // served instead of the generated text
};

// Gives the printer the versions of its update. A target info that was given stays as it is.
void installUpdate(PrinterModel& model);
// The printer's TargetInfo.txt: the given text, or one made from the model.
[[nodiscard]] std::string targetInfoText(const PrinterModel& model);
// The longest packet that an updater may send after reading that text.
[[nodiscard]] std::uint32_t packetLimit(const PrinterModel& model);
// The longest file block that an updater can always receive.
[[nodiscard]] std::uint32_t blockLimit(const PrinterModel& model);

// Rows end in CR LF; a row belongs to a key that it begins with, ignoring case.
[[nodiscard]] std::string withoutRows(std::string_view text, std::string_view key);
// The value part of the key's first row.
[[nodiscard]] std::optional<std::string> rowValue(std::string_view text, std::string_view key);

} // namespace vymprinter
