// SPDX-License-Identifier: MIT
// The printer's side of its USB interface: answers control requests, reads packets from the
// bulk-out pipe and writes packets to the bulk-in pipe, through the files of FunctionFS.
//
// Owns:      the files and the buffers of outstanding transfers.
// Threads:   one.
// Invariant: take() returns bytes in the order of their arrival; at most one transfer of the
//            bulk-in pipe is outstanding.
// Does not interpret the bytes.
#pragma once
#include "Tools/vymprinter/KernelQueue.h"
#include "Tools/vymprinter/UsbIdentity.h"

#include <filesystem>

struct usb_functionfs_event;

namespace vymprinter {

class UsbFunction {
public:
    enum class Happened { nothing, configured, gone, resetAsked, deviceIdAsked };

    UsbFunction(std::filesystem::path files, UsbIdentity identity);

    // Why the interface cannot be served; empty if it can.
    [[nodiscard]] const std::string& error() const { return m_error; }
    [[nodiscard]] int controlFile() const { return m_control.get(); }
    [[nodiscard]] int transferEvent() const { return m_queue.event(); }

    // The next event of the control pipe. A request for the device ID waits for one of the answers
    // below; all other requests are answered here.
    [[nodiscard]] Happened nextEvent();
    void answerDeviceId();
    void refuseDeviceId();

    // Collects ended transfers.
    void collect();
    // The next bytes that have arrived, possibly empty. Returns their room to the bus.
    [[nodiscard]] Bytes take();
    // Whether a packet of the bulk-in pipe has not left yet.
    [[nodiscard]] bool writing() const { return m_writing; }
    // Starts one transfer, which may be empty; false if there is no host. Must not be called while
    // writing().
    [[nodiscard]] bool write(ByteView bytes);
    // Cancels a transfer that the host has not read.
    void dropWrite();
    // Halts the pipe until the host clears it.
    void haltIn();
    void haltOut();

private:
    struct Slot {
        Bytes buffer;
        bool outstanding = false;
        bool arrived = false;
        std::size_t size = 0;
    };

    [[nodiscard]] FileHandle open(const char* name);
    void start();
    void queueFreeSlots();
    [[nodiscard]] Happened request(const usb_functionfs_event& event);

    const UsbIdentity m_identity;
    std::string m_error;
    std::filesystem::path m_files;
    FileHandle m_control;
    FileHandle m_out;
    FileHandle m_in;
    FileHandle m_interrupt;
    std::vector<Slot> m_slots; // used in turn
    std::size_t m_nextTaken = 0;
    std::size_t m_nextQueued = 0;
    Bytes m_writeBuffer;
    std::size_t m_deviceIdAsked = 0; // how many bytes of it
    bool m_configured = false;
    bool m_writing = false;
    KernelQueue m_queue; // destroyed first: until then the kernel has the buffers
};

} // namespace vymprinter
