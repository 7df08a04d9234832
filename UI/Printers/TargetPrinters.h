// Which of the system's printers this package could update: the rows of the device page, in the
// table's order, and beside them for every queue and every USB printer why it is a row or is none.
// One pass makes both, so that the list and its explanation cannot differ.
//
// Owns:    nothing; what it gives belongs to whoever asked.
// Threads: makeTargetPrinterList from any thread, one call at a time in a process, after the
//          description was loaded and devConnMgr_Instance was called once; it waits for the print
//          server and for USB devices, seconds each, so a window calls it beside its own thread.
//          The observer is called on that thread, never after the return. The cancel flag may be
//          set from any thread; the rest is pure.
// Errors:  a print server or a bus that is not there is an empty list with a reason. Only
//          std::bad_alloc is thrown; whatever was borrowed from the connection manager is then
//          back.
#pragma once
#include "Platform/PrintServer.h"
#include "UI/PrinterList.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/Printers/QueueAddress.h"
#include "UI/rlpd_conf_access.h"

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

enum class FoundAs : std::uint8_t { queue, usb };

// Why a printer is no candidate. The first reason in this order that holds is the one that is told.
enum class PrinterReason : std::uint8_t {
    candidate,
    noModel, // the queue names no make and model
    otherDriver, // its make and model begin with none of the package's driver names
    noDeviceUri,
    otherConnection, // neither IPv4 nor USB
    noSerial, // a USB printer without a serial number cannot be told from its neighbours
    duplicate, // the same device as a candidate before it
    notPermitted, // nobody may open the USB device
    noAnswer, // the USB device cannot be opened, or does not tell its model
    otherModel, // the USB device answered, with a model that the package is not for
};
// Stable names for machine-readable output.
std::string_view printerReasonName(PrinterReason reason);

struct PrinterFinding {
    std::shared_ptr<PrinterInfo> printer; // never null; the candidates' own record for a candidate
    FoundAs foundAs = FoundAs::queue;
    // One of the kConnection numbers.
    int connectionType = kConnectionUnknown;
    PrinterReason reason = PrinterReason::candidate;
    std::string sameAs; // duplicate: the name of the candidate that is the same device
    std::string answeredModel; // what a USB device said of itself, where it was asked and answered
};

struct TargetPrinters {
    PrinterList::Records candidates; // queues in the server's order, then USB devices
    std::vector<PrinterFinding> findings; // every printer looked at, in the order of looking
    std::string serverProblem; // why there are no queues; empty where the server answered
    bool isCancelled = false; // what was not looked at any more is in neither list
};

struct PrinterSearch {
    PrinterRule rule;
    PrintServer* server = nullptr; // null: this system has no print queues
    bool driverOnly = false; // leave out USB devices that have no queue
    std::string usbPrinterName = "USB Printer"; // in the user's language
    std::string driverRoot; // below it lie the driver's folders; see driverFolderRoot
};

// For the package that is loaded and the driver's folders of this system. The server stays the
// caller's.
PrinterSearch packagedPrinterSearch(PrintServer* server);

// Told before each wait; nothing need be done.
class PrinterSearchObserver {
public:
    virtual ~PrinterSearchObserver() = default;
    virtual void askingPrintServer() { }
    virtual void askingDevice(const PrinterInfo& /*printer*/) { }
    virtual void lookingOnUsb() { }

protected:
    PrinterSearchObserver() = default;
    PrinterSearchObserver(const PrinterSearchObserver&) = default;
    PrinterSearchObserver& operator=(const PrinterSearchObserver&) = default;
};

// cancel is looked at before each wait: the device that is being asked is still let answer.
TargetPrinters makeTargetPrinterList(const PrinterSearch& search, const std::atomic<bool>& cancel,
                                     PrinterSearchObserver& observer);

// The row to select once the list was made anew: the row of the same port string, 0 where that is
// gone. Row 0, the default anyway, and rows that do not exist stay what they are.
int rememberedRow(int selectedRow, const PrinterList::Records& before,
                  const PrinterList::Records& after);
