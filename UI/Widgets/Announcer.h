// SPDX-License-Identifier: MIT
// Makes the user's screen reader say a text, wherever the focus is. A reader does not notice
// by itself that a text without the focus has changed, and the toolkit does not pass its own alerts
// on to it.
//
// Owns:      the last announcements: a reader fetches the text a moment after the event.
// Threads:   the interface's own.
// Invariant: an announced text never changes. No announcement is a child of the window: a user who
//            walks through the window meets each text once.
#pragma once
#include <QAccessible>
#include <QString>
#include <QWidget>
#include <deque>

class Announcer {
public:
    // More than a whole run of one printer announces.
    static constexpr std::size_t kKept = 32;

    Announcer() = default;
    ~Announcer();
    Announcer(const Announcer&) = delete;
    Announcer& operator=(const Announcer&) = delete;

    void announce(QWidget& about, const QString& text); // without a reader, only keeps it
    // The announcements that a reader can still fetch, the oldest first.
    [[nodiscard]] const std::deque<QAccessible::Id>& kept() const { return m_kept; }

private:
    std::deque<QAccessible::Id> m_kept;
};
