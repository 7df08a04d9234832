// SPDX-License-Identifier: MIT
// The seam to USB: only the calls for finding, opening and using a printer's interface. One
// implementation per system; tests plug in a scripted one. Without a host there are no USB
// printers.
//
// Owns:    a list owns its interfaces, a caller the connection that it opened. A connection may
//          outlive its interface; both end before their host does.
// Threads: interfaces() from any; an interface or a connection from one thread at a time.
// Errors:  are results. Finding and opening may throw std::bad_alloc; a connection throws nothing.
//          After a device was pulled out, every call fails. Lengths and texts that a device reports
//          are passed on unchecked: callers check them.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

enum class UsbStatus : std::uint8_t {
    ok,
    busy, // another program has the interface open; it may be free a little later
    failed,
    notPermitted, // this user may not open it, now or a little later
};

struct UsbPipe {
    enum class Type : std::uint8_t { control = 0, isochronous = 1, bulk = 2, interrupt = 3 };
    bool in; // from the device to this computer
    Type type;
};

// A request to the interface that reads from the device.
struct UsbControlRequest {
    std::uint8_t requestType;
    std::uint8_t request;
    std::uint16_t value;
    std::uint16_t index;
    std::uint16_t length; // the most bytes that the device may return
    unsigned long noDataTimeoutMs; // without any byte transferred
    unsigned long completionTimeoutMs; // for the whole request
};

// An interface opened exclusively. Destroying it aborts outstanding transfers and closes it; after
// that it reports no result and touches no buffer.
class UsbConnection {
public:
    using ReadDone = void (*)(void* reference, UsbStatus result, std::uint32_t bytes);
    using WriteDone = void (*)(void* reference, UsbStatus result);

    virtual ~UsbConnection() = default;
    UsbConnection(const UsbConnection&) = delete;
    UsbConnection& operator=(const UsbConnection&) = delete;

    virtual bool configurationValue(std::uint8_t& value) = 0;
    virtual bool interfaceNumber(std::uint8_t& number) = 0;
    virtual bool alternateSetting(std::uint8_t& setting) = 0;
    virtual bool pipeCount(std::uint8_t& count) = 0; // without the control pipe
    virtual bool pipe(std::uint8_t number, UsbPipe& properties) = 0; // numbers start at 1

    // buffer holds request.length bytes; transferred is set on success.
    virtual UsbStatus controlRequest(const UsbControlRequest& request, unsigned char* buffer,
                                     std::uint32_t& transferred) = 0;

    // Start one transfer and return; false: it did not start. The host uses the buffer until it
    // reports the end, which happens only in wait. At most one of each at a time; done is never
    // null.
    virtual bool startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                            WriteDone done, void* reference) = 0;
    virtual bool startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length,
                           ReadDone done, void* reference) = 0;
    // Waits until one transfer has ended (true) or the time is over; returns false at once if no
    // transfer is outstanding. 0 seconds means one look, which lasts as long as a bus needs to
    // carry a packet to a ready device, a fraction of a second at most. A transfer that has not
    // ended stays outstanding.
    virtual bool wait(unsigned long seconds) = 0;
    // Aborts a pipe's transfer. The buffer is free on return; the next wait reports the end as
    // failed. Without an outstanding transfer it does nothing.
    virtual void abort(std::uint8_t pipe) = 0;

protected:
    UsbConnection() = default;
};

// One interface on the bus. Texts and numbers come from the system's records; each may be missing
// (false). Serial number, vendor and product name belong to the device, so call findParent first.
class UsbInterface {
public:
    virtual ~UsbInterface() = default;
    UsbInterface(const UsbInterface&) = delete;
    UsbInterface& operator=(const UsbInterface&) = delete;

    virtual bool vendorId(std::uint16_t& id) = 0;
    virtual bool interfaceClass(std::uint8_t& value) = 0;
    virtual bool findParent() = 0; // the device of the interface
    virtual bool serialNumber(std::string& text) = 0;
    virtual bool vendorName(std::string& text) = 0;
    virtual bool productName(std::string& text) = 0;
    // Whether the system forbids this user to open it. Sends the device nothing.
    virtual bool isForbidden() = 0;
    // Opens it exclusively, in one attempt.
    virtual UsbStatus open(std::unique_ptr<UsbConnection>& connection) = 0;
    // For control requests alone, such as that for the device ID: takes the interface from no
    // driver and no process. A host that cannot do so opens it exclusively.
    virtual UsbStatus openToIdentify(std::unique_ptr<UsbConnection>& connection)
    {
        return open(connection);
    }

protected:
    UsbInterface() = default;
};

class UsbHost {
public:
    using InterfaceList = std::vector<std::unique_ptr<UsbInterface>>;

    virtual ~UsbHost() = default;
    UsbHost(const UsbHost&) = delete;
    UsbHost& operator=(const UsbHost&) = delete;

    // Every interface on the bus now; false where the bus cannot be read.
    virtual bool interfaces(InterfaceList& found) = 0;

    // Sets the host of this process. The caller keeps it alive during its use. Null: no USB.
    static void plugIn(UsbHost* host) { s_plugged = host; }
    static UsbHost* plugged() { return s_plugged; }

protected:
    UsbHost() = default;

private:
    inline static std::atomic<UsbHost*> s_plugged{nullptr};
};
