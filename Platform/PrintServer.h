// SPDX-License-Identifier: MIT
// The seam to the print system: only the list of its queues. One implementation per system; tests
// plug in a scripted one.
//
// Owns:    nothing.
// Threads: one at a time; queues() may wait for the server, within a bound.
// Errors:  a missing, refusing or slow server is a result, never an exception; only std::bad_alloc
//          may be thrown. Texts come from the server and are never trusted.
#pragma once
#include <optional>
#include <string>
#include <vector>

// One queue. A missing text is absent; so is an empty location, since servers report a missing
// location as empty.
struct PrintQueue {
    std::optional<std::string> name; // for people
    std::optional<std::string> identifier; // for programs
    std::optional<std::string> location;
    std::optional<std::string> deviceUri;
    std::optional<std::string> makeAndModel;
};

class PrintServer {
public:
    virtual ~PrintServer() = default;
    PrintServer(const PrintServer&) = delete;
    PrintServer& operator=(const PrintServer&) = delete;

    // Every queue, in the server's order. False: found is empty and reason says why, in words that
    // may be shown after they have passed UI/Text/PlainText.
    virtual bool queues(std::vector<PrintQueue>& found, std::string& reason) = 0;

protected:
    PrintServer() = default;
};
