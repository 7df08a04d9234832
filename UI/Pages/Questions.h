// The questions and messages of the wizard, in the user's language: what they say and which button
// the Return key presses.
//
// Owns:    nothing.
// Threads: the interface's own.
// Does not show them, nor decide what follows an answer.
#pragma once
#include "UI/Widgets/Alerts.h"

Alert startQuestion(bool allowsOlderVersions);
Alert cancelQuestion();
Alert addressMessage(); // the address of zeros
// packageProblem: why there is no usable package; empty where there is one.
Alert unsupportedSystemMessage(const std::string& packageProblem);
