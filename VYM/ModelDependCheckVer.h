// The version decision as a value: whether an update may replace what a printer has installed,
// the protocol's code for it, and the reason in a word. Which form a version text has is told by
// where the first point stands in the update's version.
//
// Threads: any. Reads nothing but its arguments: no description, no printer.
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
    otherSeries, // the leading characters of the versions differ: nothing is sent, and no error
    unreadableVersion, // a version text of no known form
    undecided, // an error came before the decision
    noRule, // the package's version rule sends no such step: nothing is sent, and no error
};

struct VersionDecision {
    bool send;
    int code; // result::kSuccess when sent; also when otherSeries or an unruled step refuses
    VersionReason reason;
};

// target: the version that the printer has installed; compatible may be empty.
VersionDecision decideVersion(std::string_view update, std::string_view compatible,
                              std::string_view target, yesno_type allowVersionDown);
