// The seam to the print system: its queues as the server lists them, and no more. One
// implementation a system; tests put in a scripted one.
//
// Owns:    nothing.
// Threads: from one thread at a time; queues may wait for the server, within a bound.
// Errors:  a server that is not there, refuses or is slow is an answer, never an exception; only
//          std::bad_alloc may be thrown. Texts are the server's own and are never trusted.
#pragma once
#include <optional>
#include <string>
#include <vector>

// One queue. A text that the server does not have is absent; so is an empty location, which is how
// servers say that there is none.
struct PrintQueue {
    std::optional<std::string> name; // as people read it
    std::optional<std::string> identifier; // as programs name it
    std::optional<std::string> location;
    std::optional<std::string> deviceUri;
    std::optional<std::string> makeAndModel;
};

class PrintServer {
public:
    virtual ~PrintServer() = default;
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    // Every queue, in the server's order. False: found is empty and reason says why, in words fit
    // to be shown once they have passed UI/Text/PlainText.
    virtual bool queues(std::vector<PrintQueue>& found, std::string& reason) = 0;

protected:
    PrintServer() = default;
};
