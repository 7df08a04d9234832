// SPDX-License-Identifier: MIT
// Compares the decisions of a simulation, of a check of a virtual printer and of an update of it,
// for packages and printers made from seeds.
#include "Tools/vympack/DeskPrinter.h"
#include "Tools/vympack/EnginePackage.h"
#include "Tools/vympack/Rehearsal.h"
#include "Tools/vympack/SimulatedPrinter.h"
#include "Tools/vympack/VersionSamples.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"
#include "tests/support/Package.h"

#include <atomic>
#include <gtest/gtest.h>
#include <random>

using namespace vympack;

namespace {

constexpr unsigned kSeeds = VYMKIT_TEST_SLOWNESS > 2 ? 50 : 500; // fewer under sanitizers
constexpr const char* kModel = "MODEL-A";

// The same choices for the same seed on every machine.
class Dice {
public:
    explicit Dice(unsigned seed) : m_numbers(seed) { }
    bool oneIn(unsigned n) { return m_numbers() % n == 0; }
    template <class T> const T& of(const std::vector<T>& all)
    {
        return all[m_numbers() % all.size()];
    }
    std::size_t upTo(std::size_t most) { return m_numbers() % (most + 1); }

private:
    std::mt19937 m_numbers;
};

struct Case {
    std::string description;
    SimulatedPrinter printer;
    std::vector<std::pair<std::string, std::string>> images;
};

Case makeCase(unsigned seed)
{
    Dice dice(seed);
    Case made{std::string("TGMNAME ") + kModel
                  + "\r\nUPDATETIME 5\r\nENTERTIME 5\r\nEXITTIME 5\r\n",
              {dice.oneIn(12) ? "MODEL-B" : "model-a", {}, !dice.oneIn(3)},
              {}};
    if (!dice.oneIn(6))
        made.description +=
            "ALLOWVERSIONDOWN " + dice.of<std::string>({"NO", "YES", "BOTH", "BOTH"}) + "\r\n";
    if (dice.oneIn(4))
        made.description += "SPECIALCMDPATTERN YES\r\n";
    const std::vector<std::string> names{"MAIN", "Boot", "FONT", "PANEL"};
    const auto count = 1 + dice.upTo(2);
    for (std::size_t i = 0; i < count; ++i) {
        const auto update = dice.of<std::string>({"AB010200", "AB010200", "01.20", "AB0101.20",
                                                  "ABCDEFGH.a.01.20", "ABCD20240102.", "1.2"});
        const auto compatible = dice.of<std::string>({"", "", "AB010100", "AB010200"});
        const auto image = names[i] + ".img";
        made.description += "VERSION " + names[i] + "=" + update + " " + image + " " + names[i]
            + ".FW" + (compatible.empty() ? "" : " COMPATIBLE=" + compatible) + "\r\n";
        if (!dice.oneIn(25))
            made.images.emplace_back(
                image, imageBytes(dice.upTo(70'000), seed + static_cast<unsigned>(i)));
        const auto samples = versionSamples(update, compatible);
        const auto installed = dice.oneIn(8) ? std::string("garbage") : dice.of(samples).version;
        if (!installed.empty() && !dice.oneIn(8))
            made.printer.installed.push_back({names[i], installed});
    }
    return made;
}

vymprinter::PrinterModel modelOf(const SimulatedPrinter& printer)
{
    vymprinter::PrinterModel model;
    model.targetInfo = targetInfoOf(printer);
    model.statusQuery = printer.statusQuery;
    return model;
}

Outcome simulated(const PackageFacts& package, const SimulatedPrinter& printer)
{
    CheckFacts facts;
    facts.address = "127.0.0.1";
    facts.report = checkTargetInfo(targetInfoOf(printer));
    return concludeCheck(package, facts);
}

Outcome checked(const PackageFacts& package, const SimulatedPrinter& printer)
{
    DeskPrinter desk(modelOf(printer));
    EXPECT_EQ(desk.error(), "");
    CheckFacts facts;
    facts.address = "127.0.0.1";
    std::string address = facts.address;
    const std::atomic<bool> stop{false};
    facts.report = vymCheck_Run(nullptr, address.data(), desk.port(), stop);
    return concludeCheck(package, facts);
}

bool isPassedOver(const FirmwareOutcome& firmware)
{
    return firmware.reached && firmware.decision == Decision::skip
        && firmware.resultCode == result::kSuccess;
}

// If a status query follows a firmware that was not sent, only the printer decides.
bool doesPrinterDecide(const Outcome& outcome, const SimulatedPrinter& printer)
{
    return printer.statusQuery
        && std::any_of(outcome.firmware.begin(), outcome.firmware.end(), isPassedOver);
}

void expectSameCheck(const Outcome& left, const Outcome& right)
{
    EXPECT_EQ(left.exitCode, right.exitCode);
    EXPECT_EQ(left.name, right.name);
    EXPECT_EQ(left.message, right.message);
    EXPECT_EQ(left.printerModel, right.printerModel);
    ASSERT_EQ(left.firmware.size(), right.firmware.size());
    for (std::size_t i = 0; i < left.firmware.size(); ++i) {
        const auto& one = left.firmware[i];
        const auto& other = right.firmware[i];
        EXPECT_EQ(one.reached, other.reached);
        EXPECT_EQ(one.decision, other.decision);
        EXPECT_EQ(one.reason, other.reason);
        EXPECT_EQ(one.resultCode, other.resultCode);
        EXPECT_EQ(one.installed, other.installed);
        EXPECT_EQ(one.warning, other.warning);
    }
}

void expectSameRun(const Outcome& check, const Outcome& run)
{
    EXPECT_EQ(check.exitCode, run.exitCode);
    EXPECT_EQ(check.name == "update-available" ? "updated" : check.name, run.name);
    ASSERT_EQ(check.firmware.size(), run.firmware.size());
    for (std::size_t i = 0; i < check.firmware.size(); ++i) {
        EXPECT_EQ(check.firmware[i].reached, run.firmware[i].reached);
        if (!check.firmware[i].reached || !run.firmware[i].reached)
            continue;
        EXPECT_EQ(check.firmware[i].decision, run.firmware[i].decision);
        EXPECT_EQ(check.firmware[i].reason, run.firmware[i].reason);
        EXPECT_EQ(check.firmware[i].resultCode, run.firmware[i].resultCode);
        EXPECT_EQ(check.firmware[i].decision == Decision::send, run.firmware[i].bytesWentOut);
    }
}

std::vector<std::string> imagesOf(const Case& made, const Outcome& run)
{
    std::vector<std::string> digests;
    for (const auto& firmware : run.firmware) {
        for (const auto& [name, bytes] : made.images) {
            Sha256 digest;
            addTo(digest, bytes.data(), bytes.size());
            if (firmware.bytesWentOut && firmware.firmware.file == name)
                digests.push_back(hexOf(digest));
        }
    }
    return digests;
}

} // namespace

TEST(VympackRehearsal, SimulationCheckAndRunNeverDifferWhereThePrinterDoesNotDecide)
{
    const WithoutPauses quick;
    unsigned sent = 0;
    unsigned refused = 0;
    unsigned decidedByPrinter = 0;
    for (unsigned seed = 1; seed <= kSeeds && !HasFailure(); ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        const auto made = makeCase(seed);
        Package container;
        container.file("VYMINFO.txt", made.description);
        for (const auto& [name, bytes] : made.images)
            container.file(name, bytes);
        container.file("spare", "a container of one file is none").open();
        const EnginePackage package(container.folder().path().string());
        if (package.facts() == nullptr) {
            EXPECT_LT(made.images.size() + 1, 5U); // an image is missing: refused by all three
            ++refused;
            continue;
        }
        const auto simulation = simulated(*package.facts(), made.printer);
        expectSameCheck(simulation, checked(*package.facts(), made.printer));
        const auto& all = simulation.firmware;
        const bool isWarned = std::any_of(
            all.begin(), all.end(), [](const auto& firmware) { return !firmware.warning.empty(); });
        EXPECT_EQ(isWarned, doesPrinterDecide(simulation, made.printer));
        if (isWarned) {
            ++decidedByPrinter;
            continue;
        }
        DeskPrinter desk(modelOf(made.printer));
        const auto run = rehearse(*package.facts(), desk.port());
        desk.stop();
        expectSameRun(simulation, run);
        std::vector<std::string> received;
        for (const auto& firmware : desk.received())
            received.push_back(firmware.sha256);
        EXPECT_EQ(received, imagesOf(made, run));
        sent += static_cast<unsigned>(received.size());
    }
    // Each kind of end has occurred.
    EXPECT_GT(sent, kSeeds / 5);
    EXPECT_GT(refused, 0U);
    EXPECT_GT(decidedByPrinter, kSeeds / 50);
}
