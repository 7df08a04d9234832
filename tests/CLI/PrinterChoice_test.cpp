// SPDX-License-Identifier: MIT
#include "CLI/PrinterChoice.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::HasSubstr;

namespace {

void add(TargetPrinters& made, const char* identifier, const char* name,
         PrinterReason reason = PrinterReason::candidate)
{
    PrinterFinding finding;
    finding.printer = PrinterInfo::initWithPMPrinter(
        {name, identifier, {}, "lpd://" + std::string(identifier) + "/", "Model 100"});
    finding.reason = reason;
    made.findings.push_back(finding);
}

std::string chosen(const TargetPrinters& made, const char* name)
{
    const auto choice = choosePrinter(made, name);
    return choice.printer != nullptr ? choice.printer->printerID().value_or("") : choice.message;
}

} // namespace

TEST(PrinterChoice, TakesAnIdentifierBeforeANameAndExactBeforeInexact)
{
    TargetPrinters made;
    add(made, "office", "Home");
    add(made, "home", "Office");
    add(made, "OFFICE", "Third");
    EXPECT_EQ(chosen(made, "office"), "office");
    EXPECT_EQ(chosen(made, "OFFICE"), "OFFICE");
    EXPECT_EQ(chosen(made, "Home"), "office"); // its name, exactly
    EXPECT_EQ(chosen(made, "HOME"), "home"); // an identifier, ignoring case
    EXPECT_EQ(chosen(made, "tHIRD"), "OFFICE"); // a name, ignoring case
}

TEST(PrinterChoice, RefusesWhatFitsNoneOrSeveralOrOneThatCannotBeUpdated)
{
    TargetPrinters made;
    add(made, "a", "Twin");
    add(made, "b", "Twin");
    add(made, "c", "Other", PrinterReason::otherModel);
    EXPECT_THAT(chosen(made, "none"), HasSubstr("No printer is called 'none'"));
    EXPECT_THAT(chosen(made, "twin"), HasSubstr("fits several printers: a (lpd://a/), b"));
    EXPECT_THAT(chosen(made, "c"), HasSubstr("cannot be updated: it is of another model"));
    EXPECT_THAT(chosen(made, ""), HasSubstr("No printer is called ''"));
}
