// SPDX-License-Identifier: MIT
// The table of faults: one row for each failure of the printer.
//
// Threads:   any; constant.
// Invariant: one row per FaultKind, in its order; names are unique; a row's usual stage is one of
//            its stages.
#pragma once
#include "Tools/vymprinter/Faults.h"

#include <span>

namespace vymprinter {

// The duration of a fault: one request, all requests of its stage, or all later requests.
enum class Span { once, stage, connection };

constexpr unsigned stageBit(Stage stage)
{
    return 1U << static_cast<unsigned>(stage);
}

struct FaultRow {
    FaultKind kind;
    std::string_view name;
    Stage usual; // where it strikes if no stage is named
    unsigned stages; // where it can strike: stageBit() of each
    Span span;
    bool wantsValue;
    std::string_view does;
    std::string_view seen; // by the updater's user
    bool usbOnly = false; // not possible with other carriers
};

[[nodiscard]] std::span<const FaultRow> faultTable();
[[nodiscard]] const FaultRow& faultRow(FaultKind kind);

struct StageRow {
    Stage stage;
    std::string_view name;
};

[[nodiscard]] std::span<const StageRow> stageTable();

} // namespace vymprinter
