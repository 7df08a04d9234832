// SPDX-License-Identifier: MIT
#include "CLI/ProgressText.h"

#include "CLI/Terminal.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

namespace {

constexpr std::size_t kWidestBar = 40; // a wider one shows no more
constexpr std::size_t kNarrowestBar = 8; // a narrower one is left out
constexpr double kQuiet = 5; // a wait of this many seconds is worth mentioning
constexpr double kKibi = 1024;
constexpr double kMebi = kKibi * kKibi;

std::string oneDecimal(double value)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    return text.data();
}

std::string bytesText(std::uint32_t done, std::uint32_t total)
{
    if (total == 0)
        return {};
    const bool isLarge = total >= kMebi;
    const auto unit = isLarge ? kMebi : kKibi;
    return oneDecimal(done / unit) + " of " + oneDecimal(total / unit)
        + (isLarge ? " MiB" : " KiB");
}

std::string wholeSeconds(double seconds)
{
    return std::to_string(static_cast<long>(seconds)) + " s";
}

std::string bar(double percent, std::size_t columns)
{
    if (columns < kNarrowestBar + 3) // for the blank before it and its two ends
        return {};
    const auto width = std::min(columns - 3, kWidestBar);
    const auto filled = static_cast<std::size_t>(percent / 100 * static_cast<double>(width));
    return " [" + std::string(filled, '#') + std::string(width - filled, '-') + "]";
}

// The detail between the percentage and the clock: the wait or the bytes.
std::string detailOf(const ProgressParts& parts)
{
    if (parts.silence >= kQuiet)
        return "  waiting for the printer, " + wholeSeconds(parts.silence);
    return parts.bytesTotal != 0 ? "  " + bytesText(parts.bytesDone, parts.bytesTotal) : "";
}

// The stage in this many columns: whole, or its beginning and "...".
std::string shortened(const std::string& stage, std::size_t columns)
{
    constexpr std::string_view kCut = "...";
    if (columnsNeeded(stage) <= columns)
        return stage;
    const auto room = columns > kCut.size() ? columns - kCut.size() : 0;
    return std::string(fitColumns(stage, room)).append(room != 0 ? kCut : "");
}

std::string waitingLine(const ProgressParts& parts, std::size_t columns)
{
    const auto clock = "  " + clockText(parts.seconds);
    const auto room = columns - std::min(columns, clock.size());
    const auto silence = wholeSeconds(parts.silence);
    const auto whole =
        parts.stage + (parts.stageTellsWho ? ", " : ": waiting for the printer, ") + silence;
    if (columnsNeeded(whole) <= room)
        return whole + clock;
    const auto brief = ", " + silence;
    return shortened(parts.stage, room - std::min(room, brief.size())) + brief + clock;
}

} // namespace

// A narrow terminal first loses the bar, then the detail, then the stage's end.
std::string progressLine(const ProgressParts& parts, std::size_t columns)
{
    columns -= std::min<std::size_t>(columns, kFreeColumns);
    if (!parts.percent.has_value() || !std::isfinite(*parts.percent))
        return waitingLine(parts, columns);
    const auto percent = std::clamp(*parts.percent, 0.0, 100.0);
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), " %3d %%", static_cast<int>(percent));
    const std::string percentText = text.data();
    const auto clock = "  " + clockText(parts.seconds);
    auto detail = detailOf(parts);
    const auto fixed = percentText.size() + clock.size();
    const auto stageColumns = columnsNeeded(parts.stage);
    if (stageColumns + fixed + detail.size() > columns)
        detail.clear();
    const auto used = stageColumns + fixed + detail.size();
    const auto room = columns - std::min(columns, fixed + detail.size());
    return shortened(parts.stage, room) + bar(percent, columns > used ? columns - used : 0)
        + percentText + detail + clock;
}

std::string clockText(double seconds)
{
    const auto whole = static_cast<unsigned long>(std::max(seconds, 0.0));
    std::array<char, 32> text{};
    if (whole >= 3600)
        std::snprintf(text.data(), text.size(), "%lu:%02lu:%02lu", whole / 3600, whole / 60 % 60,
                      whole % 60);
    else
        std::snprintf(text.data(), text.size(), "%lu:%02lu", whole / 60, whole % 60);
    return text.data();
}

std::string sizeText(std::uint64_t bytes)
{
    const auto size = static_cast<double>(bytes);
    if (size >= kMebi)
        return oneDecimal(size / kMebi) + " MiB";
    return size >= kKibi ? oneDecimal(size / kKibi) + " KiB" : std::to_string(bytes) + " bytes";
}
