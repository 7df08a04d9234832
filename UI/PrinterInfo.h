// SPDX-License-Identifier: MIT
// One printer that could be updated: a print queue, a USB printer without a queue, or a typed
// address.
//
// Owns:    its texts, by value; any of them may be absent.
// Threads: one at a time.
#pragma once
#include "Platform/PrintServer.h"

#include <memory>
#include <optional>
#include <string>

class PrinterInfo {
public:
    using Text = std::optional<std::string>;

    PrinterInfo() = default;
    static std::shared_ptr<PrinterInfo> initWithPMPrinter(const PrintQueue& queue);
    // Without identifier and location.
    static std::shared_ptr<PrinterInfo> initWithPrinterName(const Text& name, const Text& model,
                                                            const Text& address);

    [[nodiscard]] const Text& printerName() const { return m_name; }
    [[nodiscard]] const Text& printerID() const { return m_identifier; }
    // The port string for Connect, or a queue's device URI that can be turned into one.
    [[nodiscard]] const Text& printerURI() const { return m_uri; }
    [[nodiscard]] const Text& printerModel() const { return m_model; }
    void setPrinterURI(const Text& uri) { m_uri = uri; }

private:
    Text m_name;
    Text m_identifier;
    Text m_location; // kept with the record; not shown
    Text m_uri;
    Text m_model;
};
