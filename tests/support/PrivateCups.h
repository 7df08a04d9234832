// SPDX-License-Identifier: MIT
// A real CUPS scheduler for one test: with its own folder and socket, stub backends for every
// scheme that the tests use, and no authentication. Every user can run any number side by side.
//   PrivateCups cups;
//   cups.add({"office", "lpd://10.0.0.5/q", "Acme P1"});
//   Process program({...}, cups.environment());
//
// Owns:    the folder and the scheduler; the destructor removes both and leaves no zombie.
// Threads: one at a time.
// Errors:  throws std::runtime_error if the scheduler does not start or refuses a queue.
#pragma once
#include "tests/support/Process.h"
#include "tests/support/TempFolder.h"

#include <memory>
#include <string>
#include <vector>

class PrivateCups {
public:
    struct Queue {
        std::string identifier;
        std::string deviceUri;
        std::string makeAndModel;
        std::string description = {}; // empty: the identifier
        std::string location = {};
    };

    // False if the Debian package cups-daemon or cups-client is not installed.
    static bool isInstalled();

    // Writes the queues into the scheduler's files before it starts: any scheme is possible, and
    // hundreds of queues are quick. With an address, "127.0.0.1:6310", that is the server of
    // environment(), whose queries are encrypted.
    explicit PrivateCups(const std::vector<Queue>& seeded = {}, std::string encryptedAddress = {});
    ~PrivateCups();
    PrivateCups(const PrivateCups&) = delete;
    PrivateCups& operator=(const PrivateCups&) = delete;

    // Uses lpadmin, as an administrator would.
    void add(const Queue& queue);
    void addClass(const std::string& name, const std::string& member);
    void remove(const std::string& identifier);

    [[nodiscard]] std::string server() const // as CUPS_SERVER
    {
        return m_encryptedAddress.empty() ? socket() : m_encryptedAddress;
    }
    [[nodiscard]] std::string home() const { return m_folder / "home"; } // without settings
    [[nodiscard]] Process::Environment environment() const
    {
        const bool isEncrypted = !m_encryptedAddress.empty();
        return {"CUPS_SERVER=" + server(), "HOME=" + home(),
                std::string("CUPS_ENCRYPTION=") + (isEncrypted ? "Required" : "IfRequested")};
    }
    // Whether any query came encrypted: the scheduler makes a key for the first one.
    [[nodiscard]] bool hasEncrypted() const;
    // Ends the scheduler and waits for its end; removes its socket, too.
    void stop();

private:
    [[nodiscard]] std::string socket() const { return m_folder / "cups.sock"; }
    void writeSettings() const;
    void writeQueues(const std::vector<Queue>& queues) const;
    void awaitSocket();
    void administer(std::vector<std::string> words) const;

    std::string m_encryptedAddress;
    TempFolder m_folder;
    std::unique_ptr<Process> m_scheduler;
};
