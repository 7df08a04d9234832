// SPDX-License-Identifier: MIT
// The English texts of the command line: one for each key of stages, titles and messages, and the
// phrases about the outcome of a firmware.
//
// Threads: any.
#pragma once
#include "CLI/Outcome.h"

#include <string>
#include <string_view>

// The values for a text's {braces}.
struct MessageFacts {
    std::string address;
    std::string model; // the package's
    std::string printer; // the printer's model, or "another one"
    std::string firmware; // "firmware 1 (MAIN)", or "the firmware"
    std::string place; // where the run was, such as "while firmware 1 (MAIN) was being sent"
    std::string sent; // the firmware that may have reached the printer, as the start of a sentence
    std::string port; // the TCP port
    std::string number;
    std::string count;
    std::string permission; // how to get permission to open a USB printer
    std::string holder; // the other program that updates the printer, as the start of a sentence
    std::string programs; // that have the USB printer open
};

// The key's text with the facts filled in; the key itself if there is no text.
std::string englishText(std::string_view key, const MessageFacts& facts);

// The next step, as whole sentences; the key selects one of the ways to go on.
std::string adviceText(NextStep next, std::string_view messageKey, const MessageFacts& facts);

// A table's cell: the result of a check, or of an update.
std::string checkedText(const FirmwareOutcome& outcome);
std::string updatedText(const FirmwareOutcome& outcome);
std::string verdictWord(Verdict verdict);
