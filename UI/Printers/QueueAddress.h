// Where the printer behind a print queue really is. Queues of the maker's own driver name the
// driver's daemon instead of the printer; its configuration, in one of its folders, knows better.
//
// Owns:    nothing; folders are read anew for every queue.
// Threads: any. Reads files and, in driverFolderRoot, the environment, which nobody writes.
#pragma once
#include <optional>
#include <string>

// Does this device URI name the driver's daemon?
bool isDriverUri(const std::string& uri);

// The port string that the driver's configuration has for a queue, or none. Looks below
// root + "/Library/Printers/Morix", then root + "/Library/Caches/Morix", into every folder that
// has an entry "RLPD", in the order of their names; the first answer counts.
std::optional<std::string> driverAddressOf(const std::string& queueIdentifier,
                                           const std::string& root);

// "" for the system itself, or what VYMKIT_DRIVER_ROOT in the environment says: the folder below
// which the driver's folders lie.
std::string driverFolderRoot();
