// SPDX-License-Identifier: MIT
// The entries of the package that a run leaves out because its caller wants it so. All others are
// decided as always: a choice never sends what the package's rules do not.
//
// Owns:    its numbers, by value. The default leaves nothing out.
// Threads: any.
#pragma once
#include "VYM/ModelDependCheckVer.h"

#include <algorithm>
#include <cstdint>
#include <vector>

struct EntryChoice {
    std::vector<std::uint32_t> only{}; // numbers of entries, from 1; empty: every entry
    bool skipSame = false; // leaves out firmware that is installed in the package's version

    [[nodiscard]] bool wants(std::uint32_t number) const
    {
        return only.empty() || std::find(only.begin(), only.end(), number) != only.end();
    }
};

// The decision about an entry that the choice does not want; a run goes on after it.
inline constexpr VersionDecision kNotChosen{false, result::kNotApplicable,
                                            VersionReason::notChosen};
