// The printer's side of its USB interface: answers control requests, takes packets from the
// bulk-out pipe and puts packets into the bulk-in pipe, through the files of FunctionFS.
//
// Owns:      the files and the buffers of outstanding transfers.
// Threads:   one.
// Invariant: taken bytes are told in the order in which they arrived; at most one transfer of the
//            bulk-in pipe is outstanding.
// Does not understand a byte of what it moves.
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

    // Why the interface cannot be served; empty when it can.
    [[nodiscard]] const std::string& error() const { return m_error; }
    [[nodiscard]] int controlFile() const { return m_control.get(); }
    [[nodiscard]] int transferEvent() const { return m_queue.event(); }

    // The next event of the control pipe. A device ID that is asked for waits for one of the
    // answers below; all other requests are answered here.
    [[nodiscard]] Happened nextEvent();
    void answerDeviceId();
    void refuseDeviceId();

    // Sees which transfers have ended.
    void collect();
    // What has arrived next; empty when nothing has. Gives its room back to the bus.
    [[nodiscard]] Bytes take();
    // Whether a packet of the bulk-in pipe has not left yet.
    [[nodiscard]] bool writing() const { return m_writing; }
    // Starts one transfer, an empty one too; false when the host is not there.
    [[nodiscard]] bool write(ByteView bytes);
    // Takes back what nobody has read.
    void dropWrite();
    // Makes the pipe refuse until the host clears it.
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
    KernelQueue m_queue; // goes first: until then the buffers are the kernel's
};

} // namespace vymprinter
