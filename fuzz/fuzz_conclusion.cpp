// SPDX-License-Identifier: MIT
// The input of a run's conclusion: the last record, the outcome of each firmware, the run's end.
// For every input, the conclusion claims no more than these facts, and both kinds of report can
// show it: lines without control characters, and JSON that reads back unchanged.
#include "CLI/Conclusion.h"
#include "CLI/Tables.h"
#include "UI/Text/PlainText.h"
#include "VYM/ProtocolResult.h"
#include "fuzz/Fuzz.h"

#include <cstring>

namespace {

constexpr std::size_t kColumns = 80; // of a terminal

PackageFacts packageOf(Input& input)
{
    PackageFacts package{};
    package.model = "Vymprint 200";
    for (unsigned number = 1; number <= input.byte() % 5U; ++number) {
        PackagedFirmware firmware{};
        firmware.number = number;
        // Opening a package makes its texts safe to show.
        firmware.name = plainText(input.text(input.byte() % 40), 100);
        firmware.version = plainText(input.text(input.byte() % 40), 100);
        firmware.displayName = plainText(input.text(input.byte() % 40), 100);
        firmware.nameInPrinter = plainText(input.text(input.byte() % 40), 100);
        package.firmware.push_back(firmware);
    }
    return package;
}

int codeOf(Input& input)
{
    const auto choice = input.byte();
    return choice < 200 ? 1 - choice % 14 : choice - 228; // mostly documented ones, 1 and 0 to -12
}

UpdateFacts factsOf(Input& input)
{
    UpdateFacts facts;
    facts.address = "192.0.2.7";
    auto& record = facts.lastRecord;
    record.m_updateState = static_cast<update_state>(input.byte() % 9);
    record.m_result = codeOf(input);
    record.m_bytesDone = input.number();
    record.m_bytesTotal = input.number();
    record.m_firmwareNumber = input.byte() % 7;
    record.m_updatedCount = input.byte() % 5;
    const auto name = input.text(31);
    std::memcpy(record.m_firmwareName, name.data(), name.size());
    for (auto left = input.byte() % 5; left != 0; --left)
        facts.outcomes.push_back(
            {input.byte() % 6U, codeOf(input), static_cast<VersionReason>(input.byte() % 8),
             input.byte() % 2 != 0, input.byte() % 2 != 0, input.number(), input.number()});
    if (input.byte() % 2 != 0)
        facts.endCode = codeOf(input);
    facts.stop = static_cast<StopCause>(input.byte() % 4);
    return facts;
}

void requireTrue(const UpdateFacts& facts, const Outcome& outcome)
{
    const auto& all = facts.outcomes;
    const bool anySent =
        std::any_of(all.begin(), all.end(), [](const auto& one) { return one.m_bytesWentOut; });
    require(!anySent || outcome.bytesWentOut, "what went out is not denied");
    if (outcome.verdict == Verdict::updated) {
        require(outcome.exitCode == exitcode::kDone, "an update ends with 0");
        require(std::any_of(all.begin(), all.end(),
                            [](const auto& one) {
                                return one.m_bytesWentOut && one.m_result == result::kSuccess;
                            }),
                "an update has taken something");
    }
    for (const auto& firmware : outcome.firmware)
        require(!firmware.confirmed || firmware.reached, "confirmed where it came to it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    Input input(data, size);
    const auto package = packageOf(input);
    const auto facts = factsOf(input);
    const auto outcome = concludeUpdate(package, facts);
    requireTrue(facts, outcome);
    require(!outcome.message.empty(), "an end has its words");
    for (const auto& text :
         {outcome.message, firmwareTable(outcome, kColumns), packageTable(package, kColumns)}) {
        for (const char c : text)
            require(static_cast<unsigned char>(c) >= ' ' || c == '\n', "fit for a terminal");
    }
    return 0;
}
