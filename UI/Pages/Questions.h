// SPDX-License-Identifier: MIT
// The questions and messages of the wizard, in the user's language: their texts and the button of
// the Return key.
//
// Owns:    nothing.
// Threads: the interface's own.
// Does not show them, and does not act on the answers.
#pragma once
#include "UI/Widgets/Alerts.h"

// cutOffAt: when an earlier update of the printer began that was cut off; empty: there is none.
Alert startQuestion(bool allowsOlderVersions, const std::string& cutOffAt = {});
Alert cancelQuestion();
Alert addressMessage(); // the address of zeros
// packageProblem: why there is no usable package; empty if there is one.
Alert unsupportedSystemMessage(const std::string& packageProblem);
