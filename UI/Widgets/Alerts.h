// SPDX-License-Identifier: MIT
// A question or a message that blocks the windows until the user has answered it: the seam between
// the code that asks and the code that shows it.
//
// Owns:    nothing.
// Threads: the interface's own.
// Does not look up texts: the caller supplies the words.
#pragma once
#include <string>

enum class AlertStyle { informational, critical };

// Which button the Return key presses.
enum class AlertReturn {
    pressesDefault,
    pressesAlternate, // for a question whose yes cannot be undone
};

// Its texts in the order of reading: title, remarks, message, advice, details.
struct Alert {
    std::string title;
    std::string message;
    std::string details; // technical details; often empty
    AlertStyle style = AlertStyle::informational;
    std::string defaultButton;
    std::string alternateButton; // empty: it is a message, not a question
    AlertReturn returnKey = AlertReturn::pressesDefault;
    std::string remarks; // the facts of this case
    std::string advice; // the user's next step
    std::string detailsButton; // opens the details; empty: they are always shown
    std::string extraButton; // of a message; empty: there is none
    std::string queryButton; // of a message that a query of the printer replaces; often empty

    bool operator==(const Alert&) const = default;
};

namespace alert {
constexpr int kDefault = 1;
constexpr int kAlternate = 0;
constexpr int kOther = -1; // neither button: Escape, or the window was closed
constexpr int kExtra = 2;
constexpr int kQuery = 3;
} // namespace alert

class Alerts {
public:
    Alerts() = default;
    virtual ~Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;

    // Shows the alert and waits; returns one of the answers above.
    virtual int run(const Alert& alert) = 0;
};
