// SPDX-License-Identifier: MIT
// Finds the printer of a print queue. Queues of the maker's own driver name the driver's daemon
// instead of the printer; the driver's configuration has the printer's address.
//
// Owns:    nothing; reads the folders again for every queue.
// Threads: any. Reads files and, in driverFolderRoot, the environment, which no code writes.
#pragma once
#include <optional>
#include <string>

// Whether this device URI names the driver's daemon.
bool isDriverUri(const std::string& uri);

// The port string for a queue in the driver's configuration; empty if it has none. Searches
// root + "/Library/Printers/Morix", then root + "/Library/Caches/Morix": every folder with an
// entry "RLPD", in the order of their names; the first match counts.
std::optional<std::string> driverAddressOf(const std::string& queueIdentifier,
                                           const std::string& root);

// The folder below which the driver's folders lie: the value of VYMKIT_DRIVER_ROOT in the
// environment, otherwise "" for the system's own.
std::string driverFolderRoot();
