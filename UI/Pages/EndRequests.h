// What asks the program to end from outside: a signal, or the end of the desktop's session.
//
// Threads: the interface's own.
// Decides nothing itself: whoever made it says whether this is a time to end, and ends.
#pragma once
#include "Platform/EndingSignals.h"

#include <QObject>
#include <functional>
#include <string>

class QSessionManager;

class EndRequests final : public QObject {
    Q_OBJECT

public:
    // Told what asks, in words for a log; false: not now, and the session has to go on.
    using Asked = std::function<bool(const std::string& what)>;

    // The signals have to outlive it; null: only the session asks.
    EndRequests(const EndingSignals* endings, Asked asked);

private:
    void takeSignal();
    void endSession(QSessionManager& session);

    const EndingSignals* m_signals;
    Asked m_asked;
};
