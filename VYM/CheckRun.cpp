// SPDX-License-Identifier: MIT
#include "VYM/CheckRun.h"

#include "VYM/vymBindInfo.h"
#include "VYM/vymProtocol.h"

#include <exception>

namespace {

// Decides the rest after the version: whether the image is complete and can be sent at all.
VersionDecision withImage(const VersionDecision& decision, const vymProtocol& protocol,
                          const std::string& fileName)
{
    if (!decision.send)
        return decision;
    if (const int code = protocol.CheckSending(); code != result::kSuccess)
        return {false, code, VersionReason::undecided};
    auto* container = vymBindInfo::Instance();
    if (container == nullptr || !container->holdsEveryByte(fileName.c_str()))
        return {false, result::kFirmwareUnreadable, VersionReason::undecided};
    return decision;
}

void decideEntries(vymProtocol& protocol, const std::string& model, const EntryChoice& choice,
                   CheckReport& report)
{
    protocol.LeaveOutSame(choice.skipSame);
    const auto total = g_VymInfo.countVersionRows();
    bool reached = true;
    for (std::uint32_t n = 0; n < total; ++n) {
        CheckedEntry entry{};
        std::string fileName;
        std::string subFileName;
        std::string compatibleVersion;
        std::string headerValue;
        if (!g_VymInfo.getVersion(n, entry.firmName, entry.updateVersion, fileName, subFileName,
                                  compatibleVersion, headerValue))
            return;
        entry.number = n + 1;
        entry.reached = reached;
        entry.decision = choice.wants(entry.number)
            ? withImage(protocol.DecideVersion(model.c_str(), entry.firmName.c_str(),
                                               entry.updateVersion.c_str(),
                                               compatibleVersion.c_str(), entry.installedVersion),
                        protocol, fileName)
            : kNotChosen;
        const int code = entry.decision.code;
        reached = reached && (code == result::kSuccess || code == result::kNotApplicable);
        report.entries.push_back(std::move(entry));
    }
}

// Decides by the printer's description that was read.
int decideAll(vymProtocol& protocol, const EntryChoice& choice, CheckReport& report)
{
    protocol.getTargetModel(report.printerModel);
    std::string model;
    if (!g_VymInfo.getTgmName(model))
        return result::kSystem;
    report.reportsWriting = protocol.IsSupportCheckState();
    decideEntries(protocol, model, choice, report);
    return result::kSuccess;
}

int readAndDecide(vymProtocol& protocol, const std::atomic<bool>& stop, const EntryChoice& choice,
                  CheckReport& report)
{
    const int fetched = protocol.GetFileData("TargetInfo.txt");
    return fetched != result::kSuccess || stop ? fetched : decideAll(protocol, choice, report);
}

} // namespace

CheckReport checkPrinter(char* queue, char* port, unsigned short portNo,
                         const std::atomic<bool>& stop, const EntryChoice& choice)
{
    CheckReport report{};
    vymProtocol protocol;
    report.result = protocol.EnterDownLoadMode(queue, port, portNo, false);
    if (report.result != result::kSuccess)
        return report;
    // Running out of memory here is a result like any other: the printer must still be left.
    try {
        if (!stop)
            report.result = readAndDecide(protocol, stop, choice, report);
    } catch (const std::exception&) {
        report.result = result::kSystem;
        report.entries.clear();
    }
    protocol.ExitDownLoadMode();
    return report;
}

CheckReport checkTargetInfo(std::string_view targetInfo)
{
    CheckReport report{};
    vymProtocol protocol;
    report.result = protocol.TakeTargetInfo(targetInfo);
    if (report.result == result::kSuccess)
        report.result = decideAll(protocol, {}, report);
    return report;
}
