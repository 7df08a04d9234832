// SPDX-License-Identifier: MIT
#include "tests/sim/Scenario.h"

#include "tests/support/ImageBytes.h"
#include "tests/support/Printer.h"

#include <algorithm>

namespace sim {

namespace {

constexpr const char* kFirmwareNames[] = {"MAIN", "ENGINE", "FONT"}; // only letters are compared
constexpr std::size_t kHead = 60;
constexpr std::size_t kWholeAnswer = 1460; // longer than any answer
constexpr std::size_t kBlockHead = 28; // before a block of the printer's description
constexpr std::size_t kMostPieces = 400; // of one image; more would show nothing new
constexpr double kInTime = 0.4; // of a time of the package: certainly not late
constexpr std::size_t kTellingPieces = 4; // pieces whose answers show that each piece has one
constexpr double kLeastPatienceMs = 400; // for which a host listens after any answer
constexpr unsigned kInfoMs = 1000; // the time for a block of the printer's description

std::string garbleOf(Random& random)
{
    switch (random.below(5)) {
    case 0:
        return printer::number(0x5002, 4); // less than a header
    case 1:
        return printer::reply(0x5555, "hello");
    case 2:
        return printer::number(0x5002, 4) + printer::number(0xFFFFFFFF, 4) + "x";
    case 3:
        return printer::reply(0x5002, ""); // no status
    default: {
        std::string noise;
        for (auto length = random.between(1, 60); length != 0; --length)
            noise += static_cast<char>(random.below(256));
        return noise;
    }
    }
}

} // namespace

std::string imageName(std::size_t index)
{
    return "image" + std::to_string(index);
}

std::string imageOf(std::size_t index)
{
    return imageBytes(kImageSizes[index], static_cast<unsigned>(index + 1));
}

Scenario::Scenario(std::uint64_t seed)
{
    Random random(seed);
    drawPackage(random);
    drawPrinter(random);
    drawLine(random);
    for (auto faults = random.of({0, 0, 1, 1, 2}); faults != 0; --faults)
        drawFault(random);
    lineSeed = random.next();
}

void Scenario::drawPackage(Random& random)
{
    updateSeconds = random.of({1U, 5U, 30U, 30U, 120U});
    enterSeconds = random.of({1U, 5U, 30U});
    maxPacket = random.of<std::size_t>({61, 160, 1084, 4096, 4096, 16384, 65596});
    description = "TGMNAME \"Vymprint 200\"\r\nPORT USB NET\r\nENTERTIME "
        + std::to_string(enterSeconds) + "\r\nEXITTIME " + std::to_string(random.of({0, 1, 5}))
        + "\r\nUPDATETIME " + std::to_string(updateSeconds) + "\r\n"
        + random.of({"ALLOWVERSIONDOWN NO\r\n", "ALLOWVERSIONDOWN YES\r\n",
                     "ALLOWVERSIONDOWN BOTH\r\n", "ALLOWVERSIONDOWN NO\r\n"})
        + random.of({"", "", "SPECIALCMDPATTERN YES\r\n", "SPECIALCMDPATTERN NO\r\n"});
    std::string versions;
    for (auto count = random.of({1U, 1U, 2U, 3U}); entries.size() < count;) {
        auto image = random.below(std::size(kImageSizes));
        while (kImageSizes[image] / (maxPacket - kHead) > kMostPieces)
            --image;
        const std::string name = kFirmwareNames[entries.size()];
        const bool listed = !random.chance(5);
        const bool older = !random.chance(8);
        entries.push_back({name + ".BIN", image});
        description +=
            "VERSION " + name + "=VP010210 " + imageName(image) + ' ' + name + ".BIN\r\n";
        if (listed)
            versions += "VERSION " + name + (older ? "=VP010100\r\n" : "=VP010210\r\n");
    }
    usable = !random.chance(4);
    printer.targetInfo = std::string("TGMNAME \"") + (usable ? "Vymprint 200" : "Vymprint 300")
        + "\"\r\n" + versions + "MAXPACKET " + std::to_string(maxPacket) + "\r\n";
    if (random.chance(50))
        printer.targetInfo += "SUPPORT_COMMAND 5103\r\n";
}

void Scenario::drawPrinter(Random& random)
{
    printer.enterMs = random.of({0U, 0U, 5U, 300U});
    printer.infoMs = random.of({0U, 0U, 9U, 100U, 300U});
    printer.pieceMs = random.of({0U, 0U, 1U, 5U, 9U, 11U, 20U, 50U, 160U, 400U, 1500U});
    printer.lastMs = random.chance(50) ? printer.pieceMs : random.of({0U, 10U, 100U, 450U, 2000U});
    printer.queryMs = random.of({0U, 0U, 10U, 200U});
    printer.exitMs = random.of({0U, 10U, 400U, 2000U});
    printer.answerEvery =
        random.of({1U, 1U, 1U, 10U, 0U, static_cast<unsigned>(random.between(2, 12))});
    // No answer exceeds the printer's own longest packet.
    printer.infoBlock =
        std::min(random.of<std::size_t>({4096, 4096, 50, 7}), maxPacket - kBlockHead);
    printer.writingAnswers = static_cast<unsigned>(random.below(4));
    printer.answersExit = !random.chance(20);
    readsAtOnce = random.of<std::size_t>({1 << 20, 1 << 20, 4096, 512, 61});
    pollingMs = random.of({500U, 500U, 50U, 1000U});
}

void Scenario::drawLine(Random& random)
{
    const auto delay = [&] { return random.of<Micros>({20, 20, 300, 3000, 12000, 60000}); };
    link.delayOut = delay();
    link.delayBack = random.chance(70) ? link.delayOut : delay();
    link.perKilobyte = random.of<Micros>({0, 0, 10, 100, 1000});
    link.segmentOut = random.of<std::size_t>({1460, 1460, 65536, 536, 61});
    link.fragmentBack = random.of<std::size_t>({1460, 1460, 1460, 8, 5, 1});
    link.fragmentGap = random.of<Micros>({0, 0, 1, 500});
    link.sendBuffer = random.of<std::size_t>({65536, 16384, 4608, 1 << 20, 4 << 20});
    link.window = random.of<std::size_t>({65536, 65536, 8192, 2048, 300, 1 << 20, 4 << 20});
    link.shortPercent = random.of({0U, 0U, 0U, 5U, 40U});
}

void Scenario::drawFault(Random& random)
{
    switch (random.below(9)) {
    case 0:
    case 1:
        drawFate(random);
        break;
    case 2:
    case 3:
        printer.refusedPacket =
            random.of({0U, 1U, 1000U, 1000U, static_cast<unsigned>(random.below(50))});
        printer.refusal = random.of<std::uint16_t>({0x0803, 0x0804});
        printer.refusalMs = random.of({0U, 0U, 100U, 600U, 3000U});
        break;
    case 4:
        drawLie(random);
        break;
    case 5:
        failingAllocation = random.between(1, random.of({20U, 200U, 1500U}));
        memoryFailsForGood = random.chance(50);
        break;
    case 6:
        stopAt = random.between(0, random.of<Micros>({3 * kSecond, 12 * kSecond, 60 * kSecond}));
        break;
    case 7:
        printer.enterStatus = random.of<std::uint16_t>({0x80, 0x1001, 0x1002, 0x0803, 0});
        printer.endStatus = random.of<std::uint16_t>({0x80, 0x0803, 0x0804, 0x81});
        break;
    default:
        link.opening = random.of({Opening::refuses, Opening::silent, Opening::noSocket});
        noThread = random.chance(30);
        break;
    }
}

void Scenario::drawFate(Random& random)
{
    std::uint64_t bytes = 200;
    for (const auto& entry : entries)
        bytes += kImageSizes[entry.image] + kHead * (kImageSizes[entry.image] / maxPacket + 2);
    link.fate = random.of({Fate::silence, Fate::reset, Fate::printerDies, Fate::printerDies,
                           Fate::printerCloses, Fate::standstill});
    link.trigger =
        random.of({Trigger::time, Trigger::bytesOut, Trigger::bytesOut, Trigger::bytesBack});
    link.triggerAt = random.between(1, bytes);
    if (link.trigger == Trigger::time)
        link.triggerAt = random.below(40 * kSecond);
    if (link.trigger == Trigger::bytesBack)
        link.triggerAt = random.between(1, 600);
    link.fateTakes = random.of({kSecond / 5, kSecond, 20 * kSecond});
}

void Scenario::drawLie(Random& random)
{
    switch (random.below(3)) {
    case 0:
        printer.answerCopies = random.of({2U, 3U});
        break;
    case 1:
        for (auto count = random.of({1U, 10U, 1000U}); count != 0; --count)
            printer.unasked +=
                random.chance(50) ? printer::piece(0x80) : printer::progress(0x80, 100, 100);
        break;
    default:
        printer.garbledAnswer = static_cast<unsigned>(random.below(12));
        printer.garble = garbleOf(random);
        break;
    }
}

bool Scenario::honest() const
{
    return printer.answerCopies == 1 && printer.unasked.empty() && !printer.garbledAnswer
        && tellable();
}

bool Scenario::tellable() const
{
    if (printer.answerEvery == 0) // its only answer is the last block's own
        return true;
    const auto pieces = [&](const ScenarioEntry& entry) {
        return kImageSizes[entry.image] / (maxPacket - kHead);
    };
    // A host knows only the printer's behaviour before it refuses.
    const bool showsItself = printer.answerEvery == 1
        && printer.refusedPacket.value_or(kTellingPieces) >= kTellingPieces
        && std::all_of(entries.begin(), entries.end(),
                       [&](const auto& entry) { return pieces(entry) >= kTellingPieces; });
    const double last = printer.lastMs + (printer.refusedPacket ? printer.refusalMs : 0);
    const bool keepsPace = last <= std::max(kLeastPatienceMs, 1.5 * printer.pieceMs);
    // A host waits twice as long as the printer has taken so far, but no longer than it may take.
    const double pace = printer.answerEvery * printer.pieceMs + roundTripMs();
    return 2.5 * pace <= 1000.0 * updateSeconds && (showsItself || keepsPace);
}

double Scenario::roundTripMs() const
{
    return static_cast<double>(link.delayOut + link.delayBack) / kMilli;
}

// The longest silence of a correct printer.
double Scenario::quietMs() const
{
    const auto roundTrip = roundTripMs();
    const auto packet = static_cast<double>(maxPacket);
    const auto window = static_cast<double>(std::min(link.window, readsAtOnce));
    const double packetMs = printer.pieceMs
        + packet / 1024 * static_cast<double>(link.perKilobyte) / kMilli
        + (packet / window + 1) * roundTrip;
    double pieces = 0;
    for (const auto& entry : entries)
        pieces =
            std::max(pieces, static_cast<double>(kImageSizes[entry.image]) / (packet - kHead) + 2);
    // The bytes in its window and in its own memory, which are no longer in the host's queue.
    const double unseen = std::min(pieces,
                                   static_cast<double>(link.window + readsAtOnce) / packet
                                       + 3); // in the printer's window
    const double owed = printer.answerEvery == 1 ? 2
        : printer.answerEvery == 0               ? unseen
                                   : std::min<double>(unseen, printer.answerEvery + 1);
    const double answer =
        static_cast<double>(20 / link.fragmentBack * link.fragmentGap) / kMilli + 2 * roundTrip;
    return owed * packetMs + printer.lastMs + printer.refusalMs + printer.queryMs + answer;
}

bool Scenario::inTime() const
{
    // A header that arrives in two parts is itself an error of the line.
    if (link.fragmentBack < kWholeAnswer && link.fragmentGap != 0)
        return false;
    const auto roundTrip = roundTripMs();
    const auto slowLine = static_cast<double>(500 / link.fragmentBack * link.fragmentGap) / kMilli;
    return printer.enterMs + 3 * roundTrip + slowLine < kInTime * 1000 * enterSeconds
        && printer.infoMs + 3 * roundTrip + slowLine < kInTime * kInfoMs
        && quietMs() < kInTime * 1000 * updateSeconds;
}

bool Scenario::sound() const
{
    return honest() && inTime() && usable && !usb && !failingAllocation && !noThread
        && link.opening == Opening::accepts && link.fate == Fate::none && !printer.refusedPacket
        && printer.enterStatus == 0x80 && printer.endStatus == 0x80;
}

} // namespace sim
