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

std::string behindBar(const ProgressParts& parts, double percent)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), " %3d %%", static_cast<int>(percent));
    std::string behind = text.data();
    if (parts.silence >= kQuiet)
        behind += "  waiting for the printer, " + wholeSeconds(parts.silence);
    else if (parts.bytesTotal != 0)
        behind += "  " + bytesText(parts.bytesDone, parts.bytesTotal);
    return behind + "  " + clockText(parts.seconds);
}

} // namespace

std::string progressLine(const ProgressParts& parts, std::size_t columns)
{
    if (!parts.percent.has_value() || !std::isfinite(*parts.percent))
        return parts.stage + (parts.stageTellsWho ? ", " : ": waiting for the printer, ")
            + wholeSeconds(parts.silence) + "  " + clockText(parts.seconds);
    const auto percent = std::clamp(*parts.percent, 0.0, 100.0);
    const auto behind = behindBar(parts, percent);
    const auto used = columnsNeeded(parts.stage) + columnsNeeded(behind) + 1;
    return parts.stage + bar(percent, columns > used ? columns - used : 0) + behind;
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
