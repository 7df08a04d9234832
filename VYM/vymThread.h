// SPDX-License-Identifier: MIT
// The update worker: runs a whole update on a thread of its own and publishes its progress in one
// status record. One object serves one run.
//
// Owns:    its thread, its two events, the status record, the outcome of each entry. The caller
//          owns the texts for UpdateStart, and keeps them until StopThread has returned.
// Threads: one thread creates, starts, polls, stops and deletes; StopThread may run on another
//          one while CheckState goes on. The lock guards the worker's own writes to the record,
//          the interval and the outcomes; the protocol writes the record under a lock of its own.
#pragma once
#include "VYM/EntryChoice.h"
#include "VYM/vymDevInfo.h"
#include "VYM/vymMac.h"

#include <atomic>
#include <cassert>
#include <string>
#include <vector>

class vymProtocol;

// The outcome of one firmware entry, kept after the record has moved on.
struct tag_entryoutcome {
    std::uint32_t m_number; // from 1, the entry's place in the package description
    std::int32_t m_result; // the protocol result of its update
    VersionReason m_reason;
    bool m_bytesWentOut; // at least one packet with firmware was handed to the connection
    bool m_confirmed; // the printer itself reported that it has finished writing
    std::uint32_t m_bytesSent;
    std::uint32_t m_bytesTotal;
};

class vymThread {
public:
    vymThread();
    ~vymThread(); // stops the thread if one was started
    vymThread(const vymThread&) = delete;
    vymThread& operator=(const vymThread&) = delete;

    // queue: the print queue's identifier or null; port: the port string or IPv4 address.
    // Which entries the run leaves out; call it before UpdateStart.
    void ChooseEntries(EntryChoice choice)
    {
        assert(m_thread.created == 0);
        m_choice = std::move(choice);
    }
    // True if the worker runs; false also for an object that was started before.
    bool UpdateStart(char* queue, char* port, unsigned short portNo);
    // Requests a stop and waits for the worker, without limit: a transfer is never cut.
    bool StopThread();
    // True: no firmware has been sent, and none will be. The worker then ends as after a stop
    // request once the printer has answered. False if the first firmware is already being handled.
    bool RefuseFirmware();
    bool SetPolling(unsigned long milliseconds); // 0 is refused
    bool SetVymInfo(); // an empty hook; always false
    bool CheckState(tag_devinfo& info) const;
    // The model that the printer says it is; false before the printer was queried for it.
    bool GetPrinterModel(std::string& model) const;
    // The outcome of the index-th entry that was handled, or false.
    bool GetEntryOutcome(unsigned index, tag_entryoutcome& outcome) const;

    static void* ThreadFunc(void* worker);

private:
    struct Entry; // the fields of one VERSION row
    void RunThread(char* queue, char* port, unsigned short portNo);
    void sealPackage();
    void runUpdate(vymProtocol& protocol, char* queue, char* port, unsigned short portNo);
    void keepPrinterModel(const vymProtocol& protocol);
    int updateUntilStopped(vymProtocol& protocol);
    int updateAllEntries(vymProtocol& protocol, const std::string& model, int& overall);
    int updateEntry(vymProtocol& protocol, const std::string& model, std::uint32_t number,
                    const Entry& entry);
    int finishEntry(vymProtocol& protocol);
    int pollUntilWritten(vymProtocol& protocol);
    void leaveOut(std::uint32_t number);
    int notTakenIf(int code);
    void withdrawSuccess(std::uint32_t index, int code);
    void keepOutcome(const vymProtocol& protocol, std::uint32_t number, int code);
    void publishState(update_state state);
    void idleUntilStopped();
    unsigned long pollingInterval() const;
    void closeEvents();

    std::atomic<bool> m_started{false};
    // Before the first firmware: passed by the worker, or shut by RefuseFirmware; whichever comes
    // first.
    enum class Gate : std::uint8_t { open, passed, shut };
    std::atomic<Gate> m_gate{Gate::open};
    std::atomic<bool> m_stopRequested{false};
    TAG_THREADDATA m_thread{};
    TAG_MUTEXDATA m_stopEvent{};
    TAG_MUTEXDATA m_startedEvent{};
    unsigned long m_pollingInterval VYM_GUARDED_BY(m_lock) = 1000; // milliseconds
    mutable CRITSECT m_lock;
    tag_devinfo m_info{};
    char* m_queue = nullptr;
    char* m_port = nullptr;
    unsigned short m_portNo = 0;
    EntryChoice m_choice;
    std::string m_printerModel VYM_GUARDED_BY(m_lock); // empty until the printer was queried
    std::vector<tag_entryoutcome> m_outcomes VYM_GUARDED_BY(m_lock);
};
