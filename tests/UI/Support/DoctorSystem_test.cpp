// SPDX-License-Identifier: MIT
#include "UI/Support/Doctor.h"
#include "tests/support/ScriptedPrintServer.h"
#include "tests/support/TempFolder.h"

#include <filesystem>
#include <gtest/gtest.h>

TEST(DoctorSystem, AcceptsALogFolderThatCanBeMadeButDoesNotMakeIt)
{
    const TempFolder folder;
    const auto missing = folder.path() / "state" / "vymkit";
    EXPECT_EQ(doctor::checkLogFolder(missing.string()).status, FindingStatus::ok);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "state"));
}

TEST(DoctorSystem, WarnsOfALogFolderThatCannotBeMade)
{
    const TempFolder folder;
    folder.write("file", "");
    EXPECT_EQ(doctor::checkLogFolder((folder.path() / "file").string()).status,
              FindingStatus::warning);
    EXPECT_EQ(doctor::checkLogFolder("").status, FindingStatus::warning);
}

TEST(DoctorSystem, EndsTheReasonOfAPrintServerWithOneMark)
{
    const struct {
        const char* reason;
        const char* message;
    } rows[] = {
        {"Is its service running?", "cannot be reached: Is its service running?"},
        {"It is busy.", "cannot be reached: It is busy."},
        {"no answer", "cannot be reached: no answer."},
    };
    for (const auto& row : rows) {
        ScriptedPrintServer server;
        server.refuse(row.reason);
        doctor::Request request;
        request.printServer = &server;
        doctor::Patient patient;
        std::vector<Finding> findings;
        doctor::checkQueues(request, true, patient, findings);
        EXPECT_EQ(findings.at(0).message, std::string("The print server ") + row.message);
    }
}
