// SPDX-License-Identifier: MIT
// Searches for printers on a thread of its own, so that the window stays responsive.
//
// Owns:      the search thread, which the destructor joins: that waits for the device that is being
//            queried.
// Threads:   the interface's own; asking and finished are emitted there as well.
// Invariant: one search at a time. Results of a cancelled or replaced search are never reported.
#pragma once
#include "UI/Printers/TargetPrinters.h"

#include <QObject>
#include <QString>
#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <thread>

class PrinterSearchThread final : public QObject {
    Q_OBJECT

public:
    using Find = std::function<TargetPrinters(bool driverOnly, const std::atomic<bool>& cancel,
                                              PrinterSearchObserver& observer)>;

    // The product's search: the server's queues, then USB, by the package's rule.
    static Find throughServer(std::shared_ptr<PrintServer> server, std::string usbPrinterName);

    explicit PrinterSearchThread(Find find);
    ~PrinterSearchThread() override;

    void start(bool driverOnly);
    void cancel();
    [[nodiscard]] bool isSearching() const { return m_isWanted; }
    // A device or the print server is still being waited for, also after a cancel.
    [[nodiscard]] bool isBusy() const { return m_thread.joinable(); }

signals:
    void asking(const QString& printer); // empty: the print system or the bus
    void appeared(const std::shared_ptr<PrinterInfo>& printer); // the list's next
    void finished(const TargetPrinters& found);

    // From the search thread, for this object only.
    void threadAsks(const QString& printer);
    void threadSaw(const std::shared_ptr<PrinterInfo>& printer);
    void threadFound(const TargetPrinters& found);

private:
    class Observer;

    void run(bool driverOnly);
    void threadEnded(const TargetPrinters& found);

    Find m_find;
    std::thread m_thread;
    std::atomic<bool> m_cancel{false};
    bool m_isWanted = false; // a result is expected
    bool m_isStale = false; // the running thread's result is not the expected one
    bool m_driverOnly = false;
};
