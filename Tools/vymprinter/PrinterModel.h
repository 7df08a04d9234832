// What printer this is: its model, its firmware, its limits and how it behaves when all is well;
// and the "TargetInfo.txt" in which it tells an updater so.
//
// Owns:      plain values; set once before the printer is switched on.
// Threads:   any, read-only.
// Does not know about faults: those change what is said about the printer, not the printer.
#pragma once
#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vymprinter {

using Millis = std::chrono::milliseconds;

constexpr std::string_view kTargetInfoName = "TargetInfo.txt"; // the one file that it hands out
// The size of reply that an updater can take before it has read MAXPACKET.
constexpr std::uint32_t kFirstReplyLimit = 4096;
constexpr std::uint32_t kSmallestPacket = 61; // a send-file head and one byte of firmware
constexpr std::uint32_t kLargestPacket = 64U << 20; // what this program is willing to hold
constexpr std::uint32_t kSmallestBlock = 29; // a file-block head and one byte of text

// Which pieces of firmware the printer acknowledges; errors are always told.
// "tenths": the last piece and each that is the first of a new tenth of its file, as printers on
// the bus do, where updaters wait for no others.
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
    Millis pieceTime{0}; // that it works on each packet with firmware, reading nothing
    std::uint32_t blockSize = kFirstReplyLimit;
    std::uint64_t writeRate = 0; // bytes per second; 0 writes at once
    std::optional<std::string> targetInfo; // served instead of the generated text
};

// What the printer says about itself: the given text, or one made from the model.
[[nodiscard]] std::string targetInfoText(const PrinterModel& model);
// The longest packet that an updater may send after reading that text.
[[nodiscard]] std::uint32_t packetLimit(const PrinterModel& model);
// The longest file block that an updater can take at any time.
[[nodiscard]] std::uint32_t blockLimit(const PrinterModel& model);

// Rows end in CR LF; a row belongs to a key that it begins with, whatever the case.
[[nodiscard]] std::string withoutRows(std::string_view text, std::string_view key);
// The value part of the key's first row.
[[nodiscard]] std::optional<std::string> rowValue(std::string_view text, std::string_view key);

} // namespace vymprinter
