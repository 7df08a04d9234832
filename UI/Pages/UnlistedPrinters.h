// SPDX-License-Identifier: MIT
// Why a printer is not in the list: every print queue and USB printer that the search saw, the
// reason, and what helps.
//
// Owns:    its texts and buttons.
// Threads: the interface's own.
// Does not search again, and changes nothing on the system.
#pragma once
#include "UI/Printers/PrinterHelp.h"

#include <QDialog>
#include <QString>
#include <string>
#include <vector>

class QBoxLayout;
class QScrollArea;

class UnlistedPrinters final : public QDialog {
    Q_OBJECT

public:
    // acceptsAddress: the device page takes an IP address.
    UnlistedPrinters(const TargetPrinters& found, bool acceptsAddress, QWidget* parent);

    // The four numbers of the address that the user wants to try; empty if there is none.
    [[nodiscard]] const std::vector<std::string>& address() const { return m_address; }

private:
    void addPrinter(QBoxLayout& column, const PrinterFinding& finding);
    void addAddress(QBoxLayout& column, const std::string& address);
    void addRule(QBoxLayout& column, const std::string& rule);
    void fit();

    const bool m_acceptsAddress;
    QScrollArea* m_area = nullptr;
    std::vector<std::string> m_address;
};

// Shows it until it is left; returns the address.
std::vector<std::string> explainUnlisted(const TargetPrinters& found, bool acceptsAddress,
                                         QWidget& window);
// The reason as a sentence in the user's language; empty for a candidate.
QString unlistedReason(const PrinterFinding& finding);
