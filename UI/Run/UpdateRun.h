// What window and command line both decide about a run: which text and progress belong to a status
// record, whether the run has ended and with which code, and which name, texts and next step
// belong to a result code. Texts are keys; whoever shows them owns the words.
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

// What one look at the status record changes on display. An empty field changes nothing. Where a
// package has several firmware, the first three stages have a plural text with a number in it.
struct RunStep {
    std::optional<std::string_view> textKey;
    std::optional<std::uint32_t> number; // the argument of a plural text
    std::optional<double> progress; // 0 to 100, but in state_writing whatever the printer says
    std::optional<int> endCode; // the run has ended, with this code for resultText

    bool operator==(const RunStep&) const = default;
};
RunStep runStep(const tag_devinfo& info, unsigned long firmwareCount);

// Whether two looks at the record show the same; a name counts up to its NUL.
bool isSameRecord(const tag_devinfo& left, const tag_devinfo& right);

// The worker publishes a firmware's number some seconds before its name. This is the record with
// both of the same firmware, the one that it names. names: what the printer calls the package's
// firmware, in order, made plain.
tag_devinfo withAgreeingName(const tag_devinfo& info, const std::vector<std::string>& names);
std::string firmwareNameOf(const tag_devinfo& info); // made plain

struct ResultText {
    std::string_view titleKey;
    std::string_view messageKey;
    bool isError;

    bool operator==(const ResultText&) const = default;
};
// automaticEnd: the package's need-exit-operation answer is yesno_no, so the printer leaves its
// update mode without anybody's help.
ResultText resultText(int code, bool automaticEnd);

// Names in machine-readable output and in logs: never changed once released.
std::string_view resultName(int code);
const char* stateName(update_state state);
const char* reasonName(VersionReason reason);

// What the user should do next.
enum class NextStep : std::uint8_t {
    none,
    retry,
    chooseOtherPackage,
    checkPrinter, // the printer's state is unknown: a person has to look at it
};
// bytesWentOut: firmware bytes were handed to the connection, so the printer may have changed.
NextStep nextStep(int code, bool bytesWentOut);
std::string_view nextStepName(NextStep step);
