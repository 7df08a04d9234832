// SPDX-License-Identifier: MIT
#include "UI/Pages/PrinterSearchThread.h"

#include "UI/Text/PlainText.h"

#include <system_error>

// Passes the search's reports on to the interface's thread.
class PrinterSearchThread::Observer : public PrinterSearchObserver {
public:
    explicit Observer(PrinterSearchThread& search) : m_search(search) { }

    void askingPrintServer() override { tell({}); }
    void lookingOnUsb() override { tell({}); }
    void askingDevice(const PrinterInfo& printer) override
    {
        tell(QString::fromStdString(plainText(printer.printerName().value_or(""))));
    }

    void found(const std::shared_ptr<PrinterInfo>& candidate) override
    {
        emit m_search.threadSaw(candidate);
    }

private:
    void tell(const QString& printer) { emit m_search.threadAsks(printer); }

    PrinterSearchThread& m_search;
};

PrinterSearchThread::Find PrinterSearchThread::throughServer(std::shared_ptr<PrintServer> server,
                                                             std::string usbPrinterName)
{
    return [server = std::move(server), name = std::move(usbPrinterName)](
               bool driverOnly, const std::atomic<bool>& cancel, PrinterSearchObserver& observer) {
        auto search = packagedPrinterSearch(server.get());
        search.driverOnly = driverOnly;
        search.usbPrinterName = name;
        return makeTargetPrinterList(search, cancel, observer);
    };
}

PrinterSearchThread::PrinterSearchThread(Find find) : m_find(std::move(find))
{
    connect(
        this, &PrinterSearchThread::threadAsks, this,
        [this](const QString& printer) {
            if (m_isWanted && !m_isStale)
                emit asking(printer);
        },
        Qt::QueuedConnection);
    connect(
        this, &PrinterSearchThread::threadSaw, this,
        [this](const std::shared_ptr<PrinterInfo>& printer) {
            if (m_isWanted && !m_isStale)
                emit appeared(printer);
        },
        Qt::QueuedConnection);
    connect(this, &PrinterSearchThread::threadFound, this, &PrinterSearchThread::threadEnded,
            Qt::QueuedConnection);
}

PrinterSearchThread::~PrinterSearchThread()
{
    m_cancel = true;
    if (m_thread.joinable())
        m_thread.join();
}

void PrinterSearchThread::start(bool driverOnly)
{
    m_isWanted = true;
    m_driverOnly = driverOnly;
    m_isStale = m_thread.joinable(); // the new search follows one that is still at work
    m_cancel = m_isStale;
    if (m_isStale)
        return;
    try {
        m_thread = std::thread([this, driverOnly] { run(driverOnly); });
    } catch (const std::system_error&) {
        emit threadFound({}); // no printers; the user can still enter an address
    }
}

void PrinterSearchThread::cancel()
{
    m_isWanted = false;
    m_cancel = true;
}

void PrinterSearchThread::run(bool driverOnly)
{
    TargetPrinters found;
    try {
        Observer observer(*this);
        found = m_find(driverOnly, m_cancel, observer);
    } catch (const std::bad_alloc&) {
        found = {};
    }
    emit threadFound(found);
}

void PrinterSearchThread::threadEnded(const TargetPrinters& found)
{
    if (m_thread.joinable())
        m_thread.join();
    if (!m_isWanted)
        return;
    if (m_isStale) {
        start(m_driverOnly);
        return;
    }
    m_isWanted = false;
    emit finished(found);
}

#include "moc_PrinterSearchThread.cpp"
