// SPDX-License-Identifier: MIT
// The version decision as a value: whether an update may replace a printer's installed version, the
// protocol's code for it, and the reason in a word. The position of the first point in the update's
// version decides the form of the version texts.
//
// Threads: any. Reads only its arguments: no description, no printer.
#pragma once
#include "VYM/ProtocolResult.h"
#include "VYM/vymParse.h"

#include <cstdint>
#include <string_view>

enum class VersionReason : std::uint8_t {
    applies,
    otherModel,
    notListed, // the printer does not list this firmware
    notNewer, // the package's version rule does not allow this step
    tooOld, // the printer's version is below the compatible version
    otherSeries, // the leading characters of the versions differ: sends nothing, without an error
    unreadableVersion, // a version text of no known form
    undecided, // an error came before the decision
    noRule, // the package's version rule does not cover this step: sends nothing, without an error
    notChosen, // the caller left this firmware out
    sameVersion, // the caller left out what is installed already
};

struct VersionDecision {
    bool send;
    int code; // result::kSuccess if sent, for otherSeries, and for a step without a rule
    VersionReason reason;
};

// target: the version that the printer has installed; compatible may be empty.
VersionDecision decideVersion(std::string_view update, std::string_view compatible,
                              std::string_view target, yesno_type allowVersionDown);
