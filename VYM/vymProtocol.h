// Drives one printer through a firmware update: opens the connection, enters download mode,
// fetches the printer's "TargetInfo.txt", decides, sends each firmware in pieces, asks how far the
// printer has written, leaves download mode. Every result is a protocol code of ProtocolResult.h.
//
// Trusts nothing that comes back: a reply counts only when it is whole, of the expected command,
// and long enough for what is read from it; sizes that a printer announces are bounded here.
//
// Owns:    the open connection (closed on destruction) and the printer's description.
// Threads: one, the update worker's. Its lock guards what it writes to a status record; the
//          record's reader holds another lock, so the fields are stored atomically as well.
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

// What a model-specific version rule says: 0 none applies, 1 refuse as not applicable, 2 refuse.
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
    int CloseDevice(); // the handle is gone whatever the result
    int SetPacketSize(unsigned long bytes); // the largest reply that is kept
    [[nodiscard]] bool IsSupportCheckState() const; // the printer lists the status query
    void setPolingTime(unsigned long milliseconds);
    void setUpdateState(tag_devinfo& info, update_state state, int code, unsigned long done,
                        unsigned long total);

    // Opens and enters; the connection stays open also when the printer refuses.
    int EnterDownLoadMode(char* queue, char* port, unsigned short portNo, bool flag);
    // Reads a file of the printer and loads it as the printer's description.
    int GetFileData(const char* name);
    // A last block with data has its start not after its end: that is the caller's duty.
    // Loads a text as the printer's description, as GetFileData does once it has it.
    int TakeTargetInfo(std::string_view text);
    int SendFileData(const char* name, unsigned short kind, unsigned long start, unsigned long end,
                     unsigned char* data, unsigned long length);
    // One firmware entry of the package: the fields of its VERSION row; compatibleVersion and
    // updateVersion may be null where CheckVersion says so. kSuccess also where the version rule
    // refuses without an error: DecisionReason and FirmwareBytesWentOut tell what happened.
    int UpdateFirmware(const char* model, const char* firmName, const char* updateVersion,
                       const char* fileName, const char* subFileName, const char* compatibleVersion,
                       tag_devinfo& info);
    int CheckState(tag_devinfo& info);
    // Whether the answer that counted for the last firmware is the last block's own; waits for as
    // long as the printer may still answer. UpdateFirmware does so by itself where the printer
    // cannot be queried for its status.
    int ConcludeFirmware();
    // Every packet of the last firmware has found its answer, or a later request has.
    [[nodiscard]] bool FirmwareIsAnswered() const { return m_answers.isComplete(); }
    // A transport failure leaves the connection open; otherwise it is closed.
    int ExitDownLoadMode();

    // Whether the firmware is to be sent, by the printer's description as it is after a fresh
    // GetFileData; code carries the reason or kSuccess.
    bool CheckVersion(const char* model, const char* firmName, const char* updateVersion,
                      const char* compatibleVersion, int& code);
    bool CheckFirmVer(const char* updateVersion, const char* compatibleVersion,
                      const char* targetVersion, int& code);
    // The hook for version rules of single models; none has one, so it never decides (false).
    virtual bool CheckFirmVerForModel(const char* updateVersion, const char* targetVersion,
                                      int& code, modelchk_result& outcome);
    // CheckVersion's decision without the fetch: by the printer's description as it is now.
    // installedVersion: what the printer lists for the firmware, empty if it does not.
    VersionDecision DecideVersion(const char* model, const char* firmName,
                                  const char* updateVersion, const char* compatibleVersion,
                                  std::string& installedVersion);

    // What would keep a firmware from being sent once it is decided: a time or a packet size that
    // cannot be used. kSuccess, or the code with which UpdateFirmware would end.
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
    class Reply; // a block of the connection, given back at the end of its scope
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
    int hearAnswer(Reply& reply);
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
    AnswerAccount m_answers; // to file packets
    std::uint64_t m_sendingEnds = UINT64_MAX; // no transfer goes on beyond this
    std::vector<unsigned char> m_sendBuffer; // head and data of a file packet, kept between calls
    VersionReason m_reason = VersionReason::undecided;
    bool m_bytesWentOut = false;
};
