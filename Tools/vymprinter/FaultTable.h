// The table of faults: one row per failure that the printer can show.
//
// Threads:   any; constant.
// Invariant: one row per FaultKind, in its order; names are unique; a row's usual stage is one of
//            its stages.
#pragma once
#include "Tools/vymprinter/Faults.h"

#include <span>

namespace vymprinter {

// How long a fault lasts once it has struck: one request, all of its stage, or all that follow.
enum class Span { once, stage, connection };

constexpr unsigned stageBit(Stage stage)
{
    return 1U << static_cast<unsigned>(stage);
}

struct FaultRow {
    FaultKind kind;
    std::string_view name;
    Stage usual; // where it strikes when no stage is named
    unsigned stages; // where it can strike: stageBit() of each
    Span span;
    bool wantsValue;
    std::string_view does;
    std::string_view seen; // by a person whose updater meets it
    bool usbOnly = false; // no other carrier can show it
};

[[nodiscard]] std::span<const FaultRow> faultTable();
[[nodiscard]] const FaultRow& faultRow(FaultKind kind);

struct StageRow {
    Stage stage;
    std::string_view name;
};

[[nodiscard]] std::span<const StageRow> stageTable();

} // namespace vymprinter
