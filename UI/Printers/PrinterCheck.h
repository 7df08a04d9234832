// Asking one USB printer what it is, and whether the package is for that.
//
// Owns:    nothing; each question opens its connection and closes it, and gives the model's text
//          back, whatever came of it.
// Threads: any; a question waits for the device, some seconds at most while others have it open.
//          The rest is pure. Only std::bad_alloc is thrown.
#pragma once
#include <optional>
#include <string>
#include <vector>

// What the package says about printers that it is for.
struct PrinterRule {
    std::vector<std::string> driverPrefixes; // a queue's make and model begins with one of them
    std::vector<std::string> exactModels; // what a USB device may say; if empty, the prefix counts
    std::string modelPrefix;
};
PrinterRule packagedPrinterRule(); // of the loaded description

// An empty prefix says nothing, and fits nothing.
bool isOfDriver(const PrinterRule& rule, const std::string& makeAndModel);
bool isOfModel(const PrinterRule& rule, const std::string& model);

bool isUsbPort(const std::string& port); // one of the kinds that are asked before they are listed
// What tells a USB printer from its neighbours: the port string from "serial=" on; none where
// there is none behind the first character.
std::optional<std::string> serialKey(const std::string& port);
// The product that a port string names, escapes resolved; empty for other texts.
std::string productOf(const std::string& port);

// Is the printer of this port string on the bus, and this user may not open it? Asks no device.
bool isForbiddenPort(const std::string& port);
// The model, or none where the device cannot be opened or does not tell.
std::optional<std::string> askForModel(const std::string& port);
