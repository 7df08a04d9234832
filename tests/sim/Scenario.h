// SPDX-License-Identifier: MIT
// One run: package, printer, line, memory, the moment of a stop; made from a seed, or by a test.
//
// Threads: any; a value.
#pragma once
#include "tests/sim/Link.h"
#include "tests/sim/UsbBus.h"
#include "tests/support/ModelPrinter.h"

#include <optional>
#include <string>
#include <vector>

namespace sim {

// The images in the package of every run: names, and sizes at and around the edges of pieces.
constexpr std::size_t kImageSizes[] = {0, 1, 100, 999, 4036, 20000, 70000, 300000};
std::string imageName(std::size_t index);
std::string imageOf(std::size_t index);

struct ScenarioEntry {
    std::string name; // the printer's name for it
    std::size_t image = 0; // index into kImageSizes
};

struct Scenario {
    Scenario() = default; // no firmware, no fault
    explicit Scenario(std::uint64_t seed);

    std::string description; // the package's
    std::vector<ScenarioEntry> entries;
    unsigned updateSeconds = 30;
    unsigned enterSeconds = 5;
    std::size_t maxPacket = 4096;
    PrinterManners printer;
    std::size_t readsAtOnce = 1 << 20;
    LinkManners link;
    std::optional<UsbManners> usb; // the printer is on the bus instead
    unsigned pollingMs = 500;
    std::optional<Micros> stopAt;
    std::optional<std::uint64_t> failingAllocation;
    bool memoryFailsForGood = false;
    bool noThread = false;
    bool usable = true; // with the printer's model and versions every entry can succeed
    std::uint64_t lineSeed = 0;

    // The printer answers each packet at most once, after handling it, and the answer can be
    // attributed to its packet.
    [[nodiscard]] bool honest() const;
    // It has no fault, and its answers arrive well within the package's times.
    [[nodiscard]] bool sound() const;
    [[nodiscard]] bool inTime() const;
    // Its answer to the last block can be distinguished from one to a piece: it answers each of
    // several pieces, or its last answer takes not much longer than those before. With any other
    // printer a host would have to wait for the longest possible time after each success.
    [[nodiscard]] bool tellable() const;

private:
    void drawPackage(Random& random);
    void drawPrinter(Random& random);
    void drawLine(Random& random);
    void drawFault(Random& random);
    void drawFate(Random& random);
    void drawLie(Random& random);
    [[nodiscard]] double quietMs() const;
    [[nodiscard]] double roundTripMs() const;
};

} // namespace sim
