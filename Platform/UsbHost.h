// The seam to USB: what finding, opening and using a printer's interface needs, and no more. One
// implementation a system; tests put in a scripted one. Without a host there are no USB printers.
//
// Owns:    a list owns its interfaces, a caller the connection it opened. A connection outlives the
//          interface it was opened from; both end before their host does.
// Threads: interfaces() from any; an interface or a connection from one thread at a time.
// Errors:  answers. Finding and opening may throw std::bad_alloc; a connection throws nothing. A
//          device that was pulled out fails every call. Lengths and texts that a device reports are
//          handed on as they came: callers check.
#pragma once
#include <atomic>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

enum class UsbStatus : std::uint8_t {
    ok,
    busy, // somebody else has the interface open; a little later it may be free
    failed,
    notPermitted, // this user may not open it, now or a little later
};

struct UsbPipe {
    enum class Type : std::uint8_t { control = 0, isochronous = 1, bulk = 2, interrupt = 3 };
    bool in; // from the device to us
    Type type;
};

// A request to the interface that reads from the device.
struct UsbControlRequest {
    std::uint8_t requestType;
    std::uint8_t request;
    std::uint16_t value;
    std::uint16_t index;
    std::uint16_t length; // at most so many bytes come back
    unsigned long noDataTimeoutMs; // without any byte moving
    unsigned long completionTimeoutMs; // for the whole request
};

// An interface opened exclusively. Destroying it aborts what is outstanding and closes it; nothing
// is told, and no buffer touched, from then on.
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

    // Start one transfer and return; false: it did not start. The buffer stays the host's until
    // the end is told, which happens inside wait and nowhere else. At most one each at a time.
    virtual bool startWrite(std::uint8_t pipe, const unsigned char* bytes, unsigned long length,
                            WriteDone done, void* reference) = 0;
    virtual bool startRead(std::uint8_t pipe, unsigned char* buffer, unsigned long length,
                           ReadDone done, void* reference) = 0;
    // Runs the calling thread's loop until one transfer has ended (true) or the time is over; at
    // once false where none is outstanding. 0 seconds looks once: a look lasts as long as a bus
    // takes to carry a packet to a device that is ready for it, a fraction of a second at most. A
    // transfer that is not over stays outstanding.
    virtual bool wait(unsigned long seconds) = 0;
    // Ends a pipe's transfer. Its buffer is free on return; the end is told as failed by the next
    // wait. Nothing where none is outstanding.
    virtual void abort(std::uint8_t pipe) = 0;

protected:
    UsbConnection() = default;
};

// One interface found on the bus. Texts and numbers come from the system's records; each may be
// missing (false). Serial, vendor and product name are the device's, so they need its parent.
class UsbInterface {
public:
    virtual ~UsbInterface() = default;
    UsbInterface(const UsbInterface&) = delete;
    UsbInterface& operator=(const UsbInterface&) = delete;

    virtual bool vendorId(std::uint16_t& id) = 0;
    virtual bool interfaceClass(std::uint8_t& value) = 0;
    virtual bool findParent() = 0; // the device that the interface belongs to
    virtual bool serialNumber(std::string& text) = 0;
    virtual bool vendorName(std::string& text) = 0;
    virtual bool productName(std::string& text) = 0;
    // Does the system keep this user from opening it? The device is asked nothing.
    virtual bool isForbidden() = 0;
    // Exclusively, one attempt.
    virtual UsbStatus open(std::unique_ptr<UsbConnection>& connection) = 0;

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

    // The host of this process; stays its caller's and outlives its use. Null: no USB.
    static void plugIn(UsbHost* host) { s_plugged = host; }
    static UsbHost* plugged() { return s_plugged; }

protected:
    UsbHost() = default;

private:
    inline static std::atomic<UsbHost*> s_plugged{nullptr};
};
