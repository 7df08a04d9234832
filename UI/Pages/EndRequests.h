// SPDX-License-Identifier: MIT
// Requests from outside to end the program: a signal, or the end of the desktop's session.
//
// Threads: the interface's own.
// Decides nothing itself: its creator decides whether to end, and ends the program.
#pragma once
#include "Platform/EndingSignals.h"

#include <QObject>
#include <functional>
#include <string>

class QSessionManager;

class EndRequests final : public QObject {
    Q_OBJECT

public:
    // Receives the source of the request, in words for a log. False: not now; the session must go
    // on.
    using Asked = std::function<bool(const std::string& what)>;

    // The signals must outlive it, and asked must not be empty. Null: only the session's end
    // counts.
    EndRequests(const EndingSignals* endings, Asked asked);

private:
    void takeSignal();
    void endSession(QSessionManager& session);

    const EndingSignals* m_signals;
    Asked m_asked;
};
