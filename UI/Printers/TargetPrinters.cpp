// SPDX-License-Identifier: MIT
#include "UI/Printers/TargetPrinters.h"

#include "DevConn/UsbForbidden.h"
#include "UI/DevConnMgrController.h"
#include "UI/VYM_Utilities.h"

#include <algorithm>
#include <array>

namespace {

// Holds the connection manager's list of USB printers while it lives.
class UsbPorts {
public:
    UsbPorts() : m_manager(devConnMgr_Instance())
    {
        m_count = devConnMgr_EnumUsbPort(m_manager, &m_ports);
    }
    ~UsbPorts() { devConnMgr_FreeUsbPort(m_manager, m_ports); }
    UsbPorts(const UsbPorts&) = delete;
    UsbPorts& operator=(const UsbPorts&) = delete;

    [[nodiscard]] std::vector<std::string> texts() const
    {
        std::vector<std::string> all;
        for (long i = 0; i < m_count; ++i)
            all.emplace_back(m_ports[i].m_portName);
        return all;
    }

private:
    DevConnMgr* m_manager;
    _PORT_INFO_1A* m_ports = nullptr;
    long m_count = 0;
};

int connectionTypeOf(const PrinterInfo& printer)
{
    int type = kConnectionUnknown;
    VYM_Utilities::getConnectionTypeFromURI(printer.printerURI(), type);
    return type;
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// Makes the list once.
class ListMaker {
public:
    ListMaker(const PrinterSearch& search, const std::atomic<bool>& cancel,
              PrinterSearchObserver& observer)
        : m_search(search), m_cancel(cancel), m_observer(observer)
    {
    }

    TargetPrinters make()
    {
        addQueues();
        if (!m_search.driverOnly)
            addUsbPrinters();
        return std::move(m_made);
    }

private:
    bool goesOn(); // false forever after a cancel
    void addQueues();
    void addUsbPrinters();
    void add(PrinterFinding finding, PrinterReason reason);
    [[nodiscard]] PrinterReason judgeQueue(PrinterFinding& finding);
    [[nodiscard]] PrinterReason judgeUsb(PrinterFinding& finding);
    [[nodiscard]] bool isLookedAt(const std::string& key) const; // on USB
    [[nodiscard]] bool isListed(const std::string& key, PrinterFinding& finding) const;
    [[nodiscard]] PrinterReason ask(PrinterFinding& finding);
    void resolve(PrinterInfo& printer) const;
    void addForbidden();
    void dropNameless(const usbForbidden::Printer& device);
    void explainSilence(const std::string& port);

    const PrinterSearch& m_search;
    const std::atomic<bool>& m_cancel;
    PrinterSearchObserver& m_observer;
    TargetPrinters m_made;
};

bool ListMaker::goesOn()
{
    m_made.isCancelled = m_made.isCancelled || m_cancel;
    return !m_made.isCancelled;
}

void ListMaker::add(PrinterFinding finding, PrinterReason reason)
{
    finding.reason = reason;
    if (reason == PrinterReason::candidate) {
        m_made.candidates.push_back(finding.printer);
        m_observer.found(finding.printer);
    }
    m_made.findings.push_back(std::move(finding));
}

void ListMaker::addQueues()
{
    if (m_search.server == nullptr || !goesOn())
        return;
    m_observer.askingPrintServer();
    std::vector<PrintQueue> queues;
    if (!m_search.server->queues(queues, m_made.serverProblem))
        return;
    for (const auto& queue : queues) {
        if (!goesOn())
            return;
        PrinterFinding finding;
        finding.printer = PrinterInfo::initWithPMPrinter(queue);
        finding.connectionType = connectionTypeOf(*finding.printer);
        const auto reason = judgeQueue(finding);
        add(std::move(finding), reason);
    }
}

PrinterReason ListMaker::judgeQueue(PrinterFinding& finding)
{
    auto& printer = *finding.printer;
    if (!printer.printerModel())
        return PrinterReason::noModel;
    if (!isOfDriver(m_search.rule, *printer.printerModel()))
        return PrinterReason::otherDriver;
    if (!printer.printerURI())
        return PrinterReason::noDeviceUri;
    resolve(printer);
    const auto& uri = *printer.printerURI();
    finding.connectionType = connectionTypeOf(printer);
    const bool isUsb = finding.connectionType == kConnectionUsb;
    if (!isUsb && finding.connectionType != kConnectionNet)
        return PrinterReason::otherConnection;
    const auto key = isUsb ? serialKey(uri) : uri;
    if (!key)
        return PrinterReason::noSerial;
    if (isListed(*key, finding))
        return PrinterReason::duplicate;
    return isUsbPort(uri) ? ask(finding) : PrinterReason::candidate;
}

void ListMaker::resolve(PrinterInfo& printer) const
{
    if (!isDriverUri(*printer.printerURI()) || !printer.printerID())
        return;
    if (auto address = driverAddressOf(*printer.printerID(), m_search.driverRoot))
        printer.setPrinterURI(address);
}

bool ListMaker::isListed(const std::string& key, PrinterFinding& finding) const
{
    const auto& all = m_made.candidates;
    const auto same = std::find_if(all.begin(), all.end(), [&key](const auto& candidate) {
        return contains(*candidate->printerURI(), key);
    });
    if (same == all.end())
        return false;
    finding.sameAs = (*same)->printerName().value_or((*same)->printerID().value_or(""));
    return true;
}

PrinterReason ListMaker::ask(PrinterFinding& finding)
{
    m_observer.askingDevice(*finding.printer);
    const auto model = askForModel(*finding.printer->printerURI());
    if (!model)
        return isForbiddenPort(*finding.printer->printerURI()) ? PrinterReason::notPermitted
                                                               : PrinterReason::noAnswer;
    finding.answeredModel = *model;
    return isOfModel(m_search.rule, *model) ? PrinterReason::candidate : PrinterReason::otherModel;
}

void ListMaker::addUsbPrinters()
{
    if (!goesOn())
        return;
    m_observer.lookingOnUsb();
    for (const auto& port : UsbPorts().texts()) {
        if (!goesOn())
            return;
        PrinterFinding finding;
        finding.printer = PrinterInfo::initWithPrinterName(m_search.usbPrinterName, {}, port);
        finding.foundAs = FoundAs::usb;
        finding.connectionType = kConnectionUsb;
        const auto reason = judgeUsb(finding);
        add(std::move(finding), reason);
        explainSilence(port);
    }
    addForbidden();
}

// Adds printers that this user may not open. The bus's list may have them, too, depending on the
// system's records; each is reported once.
void ListMaker::addForbidden()
{
    auto* host = UsbHost::plugged();
    if (host == nullptr || !goesOn())
        return;
    for (const auto& device : usbForbidden::printers(*host)) {
        const auto key = serialKey(device.m_port);
        if (key && isLookedAt(*key))
            continue;
        dropNameless(device);
        PrinterFinding finding;
        finding.printer = PrinterInfo::initWithPrinterName(m_search.usbPrinterName,
                                                           device.m_product, device.m_port);
        finding.foundAs = FoundAs::usb;
        finding.connectionType = kConnectionUsb;
        add(std::move(finding), PrinterReason::notPermitted);
    }
}

// Drops the bus list's entries for this device; nameless entries are interchangeable.
void ListMaker::dropNameless(const usbForbidden::Printer& device)
{
    auto& all = m_made.findings;
    for (auto left = device.m_interfaces; left > 0; --left) {
        const auto nameless = std::find_if(all.begin(), all.end(), [&device](const auto& each) {
            const auto port = each.printer->printerURI().value_or("");
            return each.foundAs == FoundAs::usb && each.reason == PrinterReason::noSerial
                && (port.empty() || port == device.m_port);
        });
        if (nameless == all.end())
            return;
        all.erase(nameless);
    }
}

bool ListMaker::isLookedAt(const std::string& key) const
{
    const auto& all = m_made.findings;
    return std::any_of(all.begin(), all.end(), [&key](const auto& each) {
        return each.foundAs == FoundAs::usb
            && serialKey(each.printer->printerURI().value_or("")) == key;
    });
}

PrinterReason ListMaker::judgeUsb(PrinterFinding& finding)
{
    const auto port = *finding.printer->printerURI();
    const auto key = serialKey(port);
    if (!key)
        return PrinterReason::noSerial;
    if (isListed(*key, finding))
        return PrinterReason::duplicate;
    const auto reason = ask(finding);
    if (reason == PrinterReason::candidate)
        finding.printer =
            PrinterInfo::initWithPrinterName(m_search.usbPrinterName, finding.answeredModel, port);
    return reason;
}

// The connection manager opens no device of another model, so such a device seems not to answer.
// The bus's list has its model; this corrects the reason for it and for the queues that lead to it.
void ListMaker::explainSilence(const std::string& port)
{
    const auto key = serialKey(port);
    const auto product = productOf(port);
    if (!key || product.empty() || isOfModel(m_search.rule, product))
        return;
    for (auto& finding : m_made.findings) {
        if (finding.reason != PrinterReason::noAnswer || !finding.printer->printerURI()
            || serialKey(*finding.printer->printerURI()) != key)
            continue;
        finding.reason = PrinterReason::otherModel;
        finding.answeredModel = product;
    }
}

} // namespace

std::string_view printerReasonName(PrinterReason reason)
{
    constexpr std::array<std::string_view, 10> kNames = {
        "candidate", "no-model",  "other-driver",  "no-device-uri", "other-connection",
        "no-serial", "duplicate", "not-permitted", "no-answer",     "other-model"};
    return kNames.at(static_cast<std::size_t>(reason));
}

PrinterSearch packagedPrinterSearch(PrintServer* server)
{
    PrinterSearch search;
    search.rule = packagedPrinterRule();
    search.server = server;
    search.driverRoot = driverFolderRoot();
    return search;
}

TargetPrinters makeTargetPrinterList(const PrinterSearch& search, const std::atomic<bool>& cancel,
                                     PrinterSearchObserver& observer)
{
    return ListMaker(search, cancel, observer).make();
}

int rememberedRow(int selectedRow, const PrinterList::Records& before,
                  const PrinterList::Records& after)
{
    if (selectedRow <= 0 || static_cast<std::size_t>(selectedRow) >= before.size())
        return selectedRow;
    const auto& uri = before[static_cast<std::size_t>(selectedRow)]->printerURI();
    const auto same = std::find_if(after.begin(), after.end(),
                                   [&uri](const auto& each) { return each->printerURI() == uri; });
    return same != after.end() ? static_cast<int>(same - after.begin()) : 0;
}
