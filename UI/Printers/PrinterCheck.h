// SPDX-License-Identifier: MIT
// Queries the model of one USB printer, and decides whether the package is for it.
//
// Owns:    nothing; each query opens and closes its connection and frees the model's text, also
//          when it fails.
// Threads: any; a query waits for the device, at most some seconds while other programs have it
//          open. The rest is pure. Throws only std::bad_alloc.
#pragma once
#include <optional>
#include <string>
#include <vector>

// The package's rule for the printers that it is for.
struct PrinterRule {
    std::vector<std::string> driverPrefixes; // a queue's make and model must begin with one of them
    std::vector<std::string> exactModels; // of USB devices; if empty, the prefix decides
    std::string modelPrefix;
};
PrinterRule packagedPrinterRule(); // of the loaded description

// An empty prefix matches no printer.
bool isOfDriver(const PrinterRule& rule, const std::string& makeAndModel);
bool isOfModel(const PrinterRule& rule, const std::string& model);

// The model of such a printer is queried before it is listed.
bool isUsbPort(const std::string& port);
// The part of the port string that identifies a USB printer: from "serial=" on. Empty if that does
// not occur after the first character.
std::optional<std::string> serialKey(const std::string& port);
// The product in a port string, with escapes resolved; empty for other texts.
std::string productOf(const std::string& port);

// Whether the printer of this port string is on the bus but this user may not open it. Sends the
// devices nothing.
bool isForbiddenPort(const std::string& port);
// The model; empty if the device cannot be opened or does not report it.
std::optional<std::string> askForModel(const std::string& port);
