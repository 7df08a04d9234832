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

struct Alert {
    std::string title;
    std::string message;
    std::string details; // technical details, shown below the message; often empty
    AlertStyle style = AlertStyle::informational;
    std::string defaultButton;
    std::string alternateButton; // empty: there is only one button
    AlertReturn returnKey = AlertReturn::pressesDefault;
    std::string remarks; // what belongs to the message in this case; between it and the details

    bool operator==(const Alert&) const = default;
};

namespace alert {
constexpr int kDefault = 1;
constexpr int kAlternate = 0;
constexpr int kOther = -1; // neither button: Escape, or the window was closed
} // namespace alert

class Alerts {
public:
    Alerts() = default;
    virtual ~Alerts() = default;
    Alerts(const Alerts&) = delete;
    Alerts& operator=(const Alerts&) = delete;

    // Shows the alert and waits; returns one of the three answers above.
    virtual int run(const Alert& alert) = 0;
};
