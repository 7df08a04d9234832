// The English words of the command line: one text per key of stages, titles and messages, and the
// phrases that tell what became of a firmware.
//
// Threads: any.
#pragma once
#include "CLI/Outcome.h"

#include <string>
#include <string_view>

// What may stand in a text's {braces}.
struct MessageFacts {
    std::string address;
    std::string model; // what the package is for
    std::string printer; // which model the printer is, or "another one"
    std::string firmware; // "firmware 1 (MAIN)", or "the firmware"
    std::string place; // how far the run had come, such as "while firmware 1 (MAIN) was being sent"
    std::string sent; // what may already have reached the printer, as the start of a sentence
    std::string port; // of TCP
    std::string number;
    std::string count;
    std::string permission; // how to be allowed to open a USB printer
};

// The key's text with the facts in it; the key itself where there is no text.
std::string englishText(std::string_view key, const MessageFacts& facts);

// What to do next, as whole sentences; the key chooses among the ways to go on.
std::string adviceText(NextStep next, std::string_view messageKey, const MessageFacts& facts);

// The cell of a table: what a check found, what an update did.
std::string checkedText(const FirmwareOutcome& outcome);
std::string updatedText(const FirmwareOutcome& outcome);
std::string verdictWord(Verdict verdict);
