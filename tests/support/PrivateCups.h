// A real CUPS scheduler of a test's own: its folder, its socket, stub backends for every scheme
// that the tests use, and no authentication. Works for every user; any number side by side.
//   PrivateCups cups;
//   cups.add({"office", "lpd://10.0.0.5/q", "Acme P1"});
//   Process program({...}, cups.environment());
//
// Owns:    the folder and the scheduler; both are gone, without a zombie, when the object goes.
// Threads: one at a time.
// Errors:  throws std::runtime_error where the scheduler does not start or refuses a queue.
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

    // Where the Debian packages cups-daemon and cups-client are not installed, there is none.
    static bool isInstalled();

    // Queues that are there from the start are written into the scheduler's own files: any scheme,
    // and hundreds of them at once.
    explicit PrivateCups(const std::vector<Queue>& seeded = {});
    ~PrivateCups();
    PrivateCups(const PrivateCups&) = delete;
    PrivateCups& operator=(const PrivateCups&) = delete;

    // With lpadmin, as an administrator would.
    void add(const Queue& queue);
    void addClass(const std::string& name, const std::string& member);
    void remove(const std::string& identifier);

    [[nodiscard]] std::string server() const { return m_folder / "cups.sock"; } // as CUPS_SERVER
    [[nodiscard]] std::string home() const { return m_folder / "home"; } // without settings
    [[nodiscard]] Process::Environment environment() const
    {
        return {"CUPS_SERVER=" + server(), "HOME=" + home()};
    }
    // Ends the scheduler and waits for that; its socket's file is gone too.
    void stop();

private:
    void writeSettings() const;
    void writeQueues(const std::vector<Queue>& queues) const;
    void awaitSocket();
    void administer(std::vector<std::string> words) const;

    TempFolder m_folder;
    std::unique_ptr<Process> m_scheduler;
};
