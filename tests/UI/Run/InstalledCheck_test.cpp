// SPDX-License-Identifier: MIT
#include "UI/Run/InstalledCheck.h"
#include "VYM/ProtocolResult.h"

#include <gtest/gtest.h>

namespace {

CheckReport answer(std::initializer_list<const char*> installed)
{
    CheckReport report{};
    report.result = result::kSuccess;
    std::uint32_t number = 0;
    for (const auto* version : installed)
        report.entries.push_back({++number, "", "", version, {}, true});
    return report;
}

} // namespace

TEST(InstalledCheck, ComparesWhatWasSentWithThePrintersOwnList)
{
    CheckReport unreachable{};
    unreachable.result = result::kConnectionLost;
    const struct {
        const char* why;
        CheckReport report;
        std::vector<SentEntry> sent;
        InstalledState state;
    } rows[] = {
        {"all is there", answer({"V2", "W2"}), {{1, "V2"}, {2, "W2"}}, InstalledState::installed},
        {"in other letters", answer({"v2"}), {{1, "V2"}}, InstalledState::installed},
        {"only what was sent counts", answer({"V1", "W2"}), {{2, "W2"}}, InstalledState::installed},
        {"the old version", answer({"V1"}), {{1, "V2"}}, InstalledState::different},
        {"one of two", answer({"V2", "W1"}), {{1, "V2"}, {2, "W2"}}, InstalledState::different},
        {"not in the list", answer({"V2"}), {{2, "W2"}}, InstalledState::different},
        {"no answer", unreachable, {{1, "V2"}}, InstalledState::unknown},
        {"an empty list", answer({}), {{1, "V2"}}, InstalledState::unknown},
    };
    for (const auto& row : rows)
        EXPECT_EQ(installedState(row.report, row.sent), row.state) << row.why;
}
