// SPDX-License-Identifier: MIT
// Drives one printer through a firmware update: opens the connection, enters download mode, fetches
// the printer's "TargetInfo.txt", decides, sends each firmware in pieces, queries the writing
// progress, leaves download mode. Every result is a protocol code of ProtocolResult.h.
//
// Trusts no reply: one counts only if it is complete, of the expected command, and long enough for
// its fields; sizes that a printer announces are bounded here.
//
// Owns:    the open connection (closed on destruction) and the printer's description.
// Threads: one, the update worker's. Its lock guards its writes to a status record; the record's
//          reader holds another lock, so the fields are stored atomically as well.
#pragma once
#include "DevConn/DevConnMgr.h"
#include "VYM/AnswerAccount.h"
#include "VYM/FileAssembly.h"
#include "VYM/ModelDependCheckVer.h"
#include "VYM/vymDevInfo.h"
#include "VYM/vymPackets.h"
#include "VYM/vymParse.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The result of a model-specific version rule: 0 no rule, 1 refuse as not applicable, 2 refuse.
using modelchk_result = int;

class vymProtocol {
public:
    // Printers need this pause before the first packet, before a check, before the data, and after
    // each firmware.
    static constexpr unsigned long kSettleMs = 2000;

    vymProtocol();
    virtual ~vymProtocol();
    vymProtocol(const vymProtocol&) = delete;
    vymProtocol& operator=(const vymProtocol&) = delete;

    // queue: the print queue's identifier or null; port: the port string or, without a queue, the
    // IPv4 address.
    int OpenDevice(char* queue, char* port, unsigned short portNo);
    int CloseDevice(); // the handle is invalid after any result
    int SetPacketSize(unsigned long bytes); // the largest reply that is kept
    [[nodiscard]] bool IsSupportCheckState() const; // the printer lists the status query
    void setPolingTime(unsigned long milliseconds);
    void setUpdateState(tag_devinfo& info, update_state state, int code, unsigned long done,
                        unsigned long total);

    // Opens and enters; the connection stays open even if the printer refuses.
    int EnterDownLoadMode(char* queue, char* port, unsigned short portNo, bool flag);
    // Reads a file of the printer and loads it as the printer's description.
    int GetFileData(const char* name);
    // Loads a text as the printer's description, like the last step of GetFileData.
    int TakeTargetInfo(std::string_view text);
    // The caller ensures that the start of a last block with data does not exceed its end.
    int SendFileData(const char* name, unsigned short kind, unsigned long start, unsigned long end,
                     unsigned char* data, unsigned long length);
    // Updates one firmware entry of the package: the fields of its VERSION row; compatibleVersion
    // and updateVersion may be null if CheckVersion allows it. Also returns kSuccess if the version
    // rule refuses without an error: DecisionReason and FirmwareBytesWentOut say what happened.
    int UpdateFirmware(const char* model, const char* firmName, const char* updateVersion,
                       const char* fileName, const char* subFileName, const char* compatibleVersion,
                       tag_devinfo& info);
    int CheckState(tag_devinfo& info);
    // Whether the accepted answer of the last firmware is the last block's own; waits for as long
    // as the printer may still answer. UpdateFirmware calls it if the printer has no status query.
    int ConcludeFirmware();
    // Reads, without waiting, what the printer has sent since: a refusal counts after all, and
    // where more answers have come than expected, the firmware is concluded again.
    int HearLateAnswers();
    // A refusal that came as late as the printer was being left. If it still answered the
    // firmware's packets then, and not the request to leave: the transport's failure, or kBadReply.
    // Else kSuccess.
    [[nodiscard]] int RefusedAtTheEnd() const { return m_refusedAtTheEnd; }
    // The printer has answered a status query since the last firmware.
    [[nodiscard]] bool StatusIsHeard() const { return m_statusIsHeard; }
    // Every packet of the last firmware, or a status query after it, has been answered.
    [[nodiscard]] bool FirmwareIsAnswered() const { return m_answers.isComplete(); }
    // The printer has answered the last GetFileData, so it handled every packet before that.
    [[nodiscard]] bool FetchIsHeard() const { return m_fetchIsHeard; }
    // After a transport failure the connection stays open; otherwise it is closed.
    int ExitDownLoadMode();

    // Whether to send the firmware, by the printer's description from a new GetFileData; code is
    // the reason or kSuccess.
    bool CheckVersion(const char* model, const char* firmName, const char* updateVersion,
                      const char* compatibleVersion, int& code);
    // Firmware that is installed in the very version of the update is then not sent, whatever the
    // package's rule says.
    void LeaveOutSame(bool leavesOut) { m_leavesOutSame = leavesOut; }
    bool CheckFirmVer(const char* updateVersion, const char* compatibleVersion,
                      const char* targetVersion, int& code);
    // The hook for version rules of single models; none has one, so it never decides (false).
    virtual bool CheckFirmVerForModel(const char* updateVersion, const char* targetVersion,
                                      int& code, modelchk_result& outcome);
    // CheckVersion's decision without the fetch, by the present description of the printer.
    // installedVersion: from the printer's list, empty if it does not list the firmware.
    VersionDecision DecideVersion(const char* model, const char* firmName,
                                  const char* updateVersion, const char* compatibleVersion,
                                  std::string& installedVersion);

    // Checks for obstacles after the decision to send: an unusable time or packet size. Returns
    // kSuccess, or the code with which UpdateFirmware would end.
    [[nodiscard]] int CheckSending() const;

    // Of the last UpdateFirmware.
    [[nodiscard]] VersionReason DecisionReason() const { return m_reason; }
    [[nodiscard]] bool FirmwareBytesWentOut() const { return m_bytesWentOut; }
    bool getTargetModel(std::string& name) const;

    int SetSSTHeader(TAG_SSTHEADER& header, unsigned short code, unsigned long length) const;
    int SetCheckSum(unsigned short& sum, const unsigned char* data, unsigned long length) const;
    int CheckRecvHeader(const unsigned char* reply, unsigned long length,
                        unsigned short expectedCode) const;
    int CheckDevConnErr(int transportResult) const;
    int Make_GetFile(TAG_CMDGETFILE& record, const char* name) const;
    int Make_SendFile(TAG_CMDSENDFILE& record, const char* name, unsigned short kind,
                      unsigned long start, unsigned long end, const unsigned char* data,
                      unsigned long length) const;
    int Make_EnterDownLoad(TAG_CMDENTERDOWNLOAD& record, bool flag) const;
    int Make_ExitDownLoad(TAG_CMDEXITDOWNLOAD& record) const;
    int Make_QuerryUpdateStatus(TAG_CMDQUERYUPDATESTATUS& record, const char* name) const;
    int Make_QuerryUpdateStatus(TAG_CMDQUERYUPDATESTATUS_SP& record) const;

private:
    class Reply; // a block of the connection, returned at the end of its scope
    struct Image; // one firmware file of the package while it is being sent

    [[nodiscard]] int connected() const;
    int setTimeout(unsigned long milliseconds);
    int setTimeoutSeconds(int seconds);
    int exchangeOnce(std::span<unsigned char> packet, Reply& reply);
    int exchange(std::span<unsigned char> packet, Reply& reply);
    int listen(unsigned long milliseconds, Reply& reply);
    int takeAnswer(const Reply& reply, bool early = false);
    int hearArrived();
    int leave(std::span<unsigned char> packet, Reply& reply);
    int hearNewest(Reply& reply);
    int hearAnswer(Reply& reply, bool wasBehind);
    int proveLife();
    [[nodiscard]] LinkState link() const { return m_manager->LookAtLink(m_handle); }
    int receiveFile(std::span<unsigned char> request, FileAssembly& file);
    int loadTargetInfo(const FileAssembly& file);
    int prepareSending(Image& image);
    int sendImage(Image& image, tag_devinfo& info);
    int sendPieces(Image& image, tag_devinfo& info);
    int sendPiece(Image& image, unsigned short kind);
    int sendFilePacket(std::span<unsigned char> packet);
    int sendLastBlock(std::span<unsigned char> packet, Reply& reply);
    void publishDecision(tag_devinfo& info, int code, const char* subFileName);
    void publishSent(tag_devinfo& info, int code, unsigned long done);

    void* m_handle = nullptr;
    vymParse m_target;
    char m_firmwareName[packets::kNameSize] = {};
    DevConnMgr* m_manager;
    std::uint32_t m_pollingTime = 0;
    CRITSECT m_lock;

    unsigned long m_timeout = 0; // milliseconds, as last set on the connection
    unsigned long m_updateTimeout = 0; // that of the last firmware
    int m_refusedAtTheEnd = result::kSuccess;
    bool m_statusIsHeard = false;
    bool m_fetchIsHeard = false;
    AnswerAccount m_answers; // to file packets
    std::uint64_t m_sendingEnds = UINT64_MAX; // every transfer ends by then
    std::vector<unsigned char> m_sendBuffer; // head and data of a file packet, kept between calls
    VersionReason m_reason = VersionReason::undecided;
    bool m_leavesOutSame = false;
    bool m_bytesWentOut = false;
};
