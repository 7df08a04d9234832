#include "UI/MainWindowControllerSearch.h"

#include "UI/PlainText.h"

#include <system_error>

// Hands what it is told to the interface's thread.
class MainWindowControllerSearch::Observer : public PrinterSearchObserver {
public:
    explicit Observer(MainWindowControllerSearch& search) : m_search(search) { }

    void askingPrintServer() override { tell({}); }
    void lookingOnUsb() override { tell({}); }
    void askingDevice(const PrinterInfo& printer) override
    {
        tell(QString::fromStdString(plainText(printer.printerName().value_or(""))));
    }

private:
    void tell(const QString& printer) { emit m_search.threadAsks(printer); }

    MainWindowControllerSearch& m_search;
};

MainWindowControllerSearch::Find
MainWindowControllerSearch::throughServer(std::shared_ptr<PrintServer> server,
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

MainWindowControllerSearch::MainWindowControllerSearch(Find find) : m_find(std::move(find))
{
    connect(
        this, &MainWindowControllerSearch::threadAsks, this,
        [this](const QString& printer) {
            if (m_isWanted && !m_isStale)
                emit asking(printer);
        },
        Qt::QueuedConnection);
    connect(this, &MainWindowControllerSearch::threadFound, this,
            &MainWindowControllerSearch::threadEnded, Qt::QueuedConnection);
}

MainWindowControllerSearch::~MainWindowControllerSearch()
{
    m_cancel = true;
    if (m_thread.joinable())
        m_thread.join();
}

void MainWindowControllerSearch::start(bool driverOnly)
{
    m_isWanted = true;
    m_driverOnly = driverOnly;
    m_isStale = m_thread.joinable(); // one that is still at work is followed by the new one
    m_cancel = m_isStale;
    if (m_isStale)
        return;
    try {
        m_thread = std::thread([this, driverOnly] { run(driverOnly); });
    } catch (const std::system_error&) {
        emit threadFound({}); // no printers, and the address entry is still there
    }
}

void MainWindowControllerSearch::cancel()
{
    m_isWanted = false;
    m_cancel = true;
}

void MainWindowControllerSearch::run(bool driverOnly)
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

void MainWindowControllerSearch::threadEnded(const TargetPrinters& found)
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
