// SPDX-License-Identifier: MIT
// The decisions about a run that window and command line share: text and progress of a status
// record, whether the run has ended and with which code, and the name, texts and next step of a
// result code. Texts are keys; the code that shows them supplies the words.
//
// Owns:    nothing.
// Threads: any. Pure functions of their arguments: no clock, no description, no worker.
#pragma once
#include "VYM/ModelDependCheckVer.h"
#include "VYM/vymDevInfo.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The changes on display after one look at the status record. An empty field means no change. If a
// package has several firmware, the first three stages have a plural text with a number.
struct RunStep {
    std::optional<std::string_view> textKey;
    std::optional<std::uint32_t> number; // the argument of a plural text
    std::optional<double> progress; // 0 to 100, but unchecked in state_writing
    std::optional<int> endCode; // the run has ended, with this code for resultText

    bool operator==(const RunStep&) const = default;
};
RunStep runStep(const tag_devinfo& info, unsigned long firmwareCount);

// Whether two records are the same; a name counts up to its NUL.
bool isSameRecord(const tag_devinfo& left, const tag_devinfo& right);

// The worker publishes a firmware's number some seconds before its name. Returns the record with
// the number of the firmware that it names. names: the printer's names for the package's firmware,
// in order, made plain.
tag_devinfo withAgreeingName(const tag_devinfo& info, const std::vector<std::string>& names);
std::string firmwareNameOf(const tag_devinfo& info); // made plain

struct ResultText {
    std::string_view titleKey;
    std::string_view messageKey;
    bool isError;

    bool operator==(const ResultText&) const = default;
};
// automaticEnd: the package's need-exit-operation value is yesno_no, so the printer leaves its
// update mode without a user's help.
ResultText resultText(int code, bool automaticEnd);

// The key of the user's next step; empty if the message says it. bytesWentOut as for nextStep.
std::string_view adviceKey(int code, bool bytesWentOut);

// Names in machine-readable output and in logs; they never change once released.
std::string_view resultName(int code);
const char* stateName(update_state state);
const char* reasonName(VersionReason reason);

// The user's next step.
enum class NextStep : std::uint8_t {
    none,
    retry,
    chooseOtherPackage,
    checkPrinter, // the printer's state is unknown: a person has to look at it
};
// bytesWentOut: firmware bytes were handed to the connection, so the printer may have changed.
NextStep nextStep(int code, bool bytesWentOut);
std::string_view nextStepName(NextStep step);
