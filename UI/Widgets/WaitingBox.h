// SPDX-License-Identifier: MIT
// A small window for work of some seconds or minutes that the user may give up.
//
// Owns:    nothing.
// Threads: the interface's own; work runs on a thread of its own.
#pragma once
#include <QString>
#include <functional>

struct WaitingWords {
    QString text;
    QString stop; // the button
};

// Runs the work and returns when it is done. stop: called when the user gives up, also by Escape or
// by closing the window; the work should then end soon. Neither may be empty.
void waitFor(const WaitingWords& words, const std::function<void()>& work,
             const std::function<void()>& stop);
