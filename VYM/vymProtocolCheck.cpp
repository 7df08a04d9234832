// SPDX-License-Identifier: MIT
// Fetches the printer's description, and decides whether a firmware is for it.
#include "VYM/AsciiCase.h"
#include "VYM/DebugText.h"
#include "VYM/DescriptionText.h"
#include "VYM/ProtocolReply.h"
#include "VYM/vymMac.h"

namespace {

constexpr const char* kTargetInfo = "TargetInfo.txt";
constexpr unsigned long kGetFileMs = 1000; // for each block of a file
// For all blocks of a file together: enough for a few kilobytes from the slowest printer.
constexpr unsigned long kWholeFileMs = 60000;
constexpr int kLeastPacket = 8; // a reply has at least a header

int assemblyResult(FileAssembly::Step step)
{
    switch (step) {
    case FileAssembly::Step::complete:
        return result::kSuccess;
    case FileAssembly::Step::damaged:
        return result::kDamaged;
    case FileAssembly::Step::tooLarge:
        return result::kSystem;
    default:
        return result::kBadReply;
    }
}

} // namespace

int vymProtocol::GetFileData(const char* name)
{
    if (const int state = connected(); state != result::kSuccess)
        return state;
    TAG_CMDGETFILE request{};
    if (const int made = Make_GetFile(request, name); made != result::kSuccess)
        return made;
    if (const int set = setTimeout(kGetFileMs); set != result::kSuccess)
        return set;
    m_fetchIsHeard = false;
    FileAssembly file;
    const int received = receiveFile(asBytes(request), file);
    return received == result::kSuccess ? loadTargetInfo(file) : received;
}

// Sends one request, then receives blocks until the last.
int vymProtocol::receiveFile(std::span<unsigned char> request, FileAssembly& file)
{
    Reply reply(*this);
    int code = exchange(request, reply);
    const auto deadline = tickMilliseconds() + kWholeFileMs;
    while (code == result::kSuccess) {
        const auto block = packets::isReplyTo(packets::kGetFile, reply.bytes())
            ? packets::fileBlockOf(reply.bytes())
            : std::nullopt;
        m_fetchIsHeard = m_fetchIsHeard || block.has_value();
        if (!block || tickMilliseconds() >= deadline)
            return result::kBadReply;
        const auto step = file.add(*block);
        if (step != FileAssembly::Step::more)
            return assemblyResult(step);
        code = exchange({}, reply);
    }
    return code;
}

int vymProtocol::TakeTargetInfo(std::string_view text)
{
    if (!m_target.loadData(text.data(), text.size(), load_targetinfo))
        return result::kSystem;
    int maxPacket = 0;
    if (!m_target.getMaxPacket(maxPacket))
        return result::kSystem;
    return maxPacket < kLeastPacket ? result::kBadReply : result::kSuccess;
}

int vymProtocol::loadTargetInfo(const FileAssembly& file)
{
    const auto bytes = file.bytes();
    if (const int taken =
            TakeTargetInfo({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        taken != result::kSuccess)
        return taken;
    int maxPacket = 0;
    m_target.getMaxPacket(maxPacket);
    return SetPacketSize(static_cast<unsigned long>(std::min(maxPacket, packets::kMostPacket)));
}

bool vymProtocol::CheckVersion(const char* model, const char* firmName, const char* updateVersion,
                               const char* compatibleVersion, int& code)
{
    m_reason = VersionReason::undecided;
    code = result::kSystem;
    if (model == nullptr || firmName == nullptr || updateVersion == nullptr) {
        code = result::kMissingArgument;
        return false;
    }
    code = GetFileData(kTargetInfo);
    if (code != result::kSuccess)
        return false;
    std::string installed;
    const auto decision =
        DecideVersion(model, firmName, updateVersion, compatibleVersion, installed);
    code = decision.code;
    return decision.send;
}

VersionDecision vymProtocol::DecideVersion(const char* model, const char* firmName,
                                           const char* updateVersion, const char* compatibleVersion,
                                           std::string& installedVersion)
{
    m_reason = VersionReason::undecided;
    installedVersion.clear();
    std::string printerModel;
    if (!m_target.getTgmName(printerModel))
        return {false, result::kSystem, m_reason};
    if (!ascii::equalNoCase(printerModel.c_str(), model))
        return {false, result::kOtherModel, m_reason = VersionReason::otherModel};
    if (!m_target.findTargetInfoVersion(firmName, installedVersion))
        return {false, result::kNotApplicable, m_reason = VersionReason::notListed};
    // Equal texts only: versions that a rule merely takes for equal may be different firmware.
    if (m_leavesOutSame
        && ascii::equalNoCase(description::orEmpty(updateVersion), installedVersion))
        return {false, result::kNotApplicable, m_reason = VersionReason::sameVersion};
    yesno_type rule = yesno_none;
    if (!g_VymInfo.getAllowVersionDown(rule))
        return {false, result::kSystem, m_reason};
    // "yes" sends any version; only a compatible version requires a comparison.
    if (description::orEmpty(compatibleVersion).empty() && rule == yesno_yes)
        return {true, result::kSuccess, m_reason = VersionReason::applies};
    int code = result::kNotApplicable;
    const bool send =
        CheckFirmVer(updateVersion, compatibleVersion, installedVersion.c_str(), code);
    return {send, code, m_reason};
}

bool vymProtocol::CheckFirmVer(const char* updateVersion, const char* compatibleVersion,
                               const char* targetVersion, int& code)
{
    if (updateVersion == nullptr || targetVersion == nullptr)
        return false;
    // The first field has always shown the target's version; readers of these texts expect that.
    debugText("UpdateVer:%s, TargetVer:%s, CompatibleVer:%s", targetVersion, targetVersion,
              compatibleVersion != nullptr ? compatibleVersion : "");
    yesno_type rule = yesno_none;
    if (!g_VymInfo.getAllowVersionDown(rule))
        return false;
    code = result::kSuccess;
    modelchk_result outcome = 0;
    if (CheckFirmVerForModel(updateVersion, targetVersion, code, outcome)) {
        if (outcome == 1)
            code = result::kNotApplicable;
        m_reason = outcome == 1 || outcome == 2 ? VersionReason::notNewer : VersionReason::applies;
        return m_reason == VersionReason::applies;
    }
    const auto decision =
        decideVersion(updateVersion, description::orEmpty(compatibleVersion), targetVersion, rule);
    m_reason = decision.reason;
    code = decision.code;
    return decision.send;
}

bool vymProtocol::CheckFirmVerForModel(const char* updateVersion, const char* targetVersion,
                                       int& code, modelchk_result& outcome)
{
    outcome = 0;
    if (updateVersion == nullptr || targetVersion == nullptr) {
        code = result::kMissingArgument;
        outcome = 2;
    }
    return false;
}
