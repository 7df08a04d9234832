// SPDX-License-Identifier: MIT
// Finds the system's printers that this package could update: the rows of the device page, in the
// table's order, and for every queue and USB printer the reason why it is a row or not. One pass
// makes both, so that the list and its explanation cannot differ.
//
// Owns:    nothing; the caller owns the results.
// Threads: makeTargetPrinterList from any thread, one call at a time in a process, after the
//          description was loaded and devConnMgr_Instance was called once; it waits for the print
//          server and for USB devices, seconds each, so a window calls it beside its own thread.
//          The observer is called on that thread, never after the return. The cancel flag may be
//          set from any thread; the rest is pure.
// Errors:  a missing print server or bus gives an empty list with a reason. Throws only
//          std::bad_alloc, after returning everything that it borrowed from the connection manager.
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

// Why a printer is no candidate. The first applicable reason in this order is reported.
enum class PrinterReason : std::uint8_t {
    candidate,
    noModel, // the queue names no make and model
    otherDriver, // its make and model begin with none of the package's driver names
    noDeviceUri,
    otherConnection, // neither IPv4 nor USB
    noSerial, // without a serial number a USB printer cannot be identified
    duplicate, // the same device as a candidate before it
    notPermitted, // this user may not open the USB device
    noAnswer, // the USB device cannot be opened, or does not report its model
    otherModel, // the USB device answered with a model that the package is not for
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
    std::string answeredModel; // the model that a USB device reported, if it did
};

struct TargetPrinters {
    PrinterList::Records candidates; // queues in the server's order, then USB devices
    std::vector<PrinterFinding> findings; // every printer that was checked, in that order
    std::string serverProblem; // why there are no queues; empty if the server answered
    bool isCancelled = false; // printers not checked by then are in neither list
};

struct PrinterSearch {
    PrinterRule rule;
    PrintServer* server = nullptr; // null: this system has no print queues
    bool driverOnly = false; // leave out USB devices that have no queue
    std::string usbPrinterName = "USB Printer"; // in the user's language
    std::string driverRoot; // the folder above the driver's folders; see driverFolderRoot
};

// A search for the loaded package, with this system's driver folders. The caller owns the server.
PrinterSearch packagedPrinterSearch(PrintServer* server);

// Receives a call before each wait and for each candidate; the default does nothing.
class PrinterSearchObserver {
public:
    virtual ~PrinterSearchObserver() = default;
    virtual void askingPrintServer() { }
    virtual void askingDevice(const PrinterInfo& /*printer*/) { }
    virtual void lookingOnUsb() { }
    // In the list's order. The record stays unchanged from then on.
    virtual void found(const std::shared_ptr<PrinterInfo>& /*candidate*/) { }

protected:
    PrinterSearchObserver() = default;
    PrinterSearchObserver(const PrinterSearchObserver&) = default;
    PrinterSearchObserver& operator=(const PrinterSearchObserver&) = default;
};

// Checks cancel before each wait; a query that has begun is still completed.
TargetPrinters makeTargetPrinterList(const PrinterSearch& search, const std::atomic<bool>& cancel,
                                     PrinterSearchObserver& observer);

// The row to select after the list was made again: the row with the same port string, 0 if that is
// gone. Row 0, the default, and rows that do not exist are returned unchanged.
int rememberedRow(int selectedRow, const PrinterList::Records& before,
                  const PrinterList::Records& after);
