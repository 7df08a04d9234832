// SPDX-License-Identifier: MIT
#include "UI/Pages/EndRequests.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>
#include <cassert>

EndRequests::EndRequests(const EndingSignals* endings, Asked asked)
    : m_signals(endings), m_asked(std::move(asked))
{
    assert(m_asked);
    connect(qGuiApp, &QGuiApplication::commitDataRequest, this, &EndRequests::endSession,
            Qt::DirectConnection);
    if (m_signals == nullptr || m_signals->descriptor() < 0)
        return;
    auto* notifier = new QSocketNotifier(m_signals->descriptor(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &EndRequests::takeSignal);
}

void EndRequests::takeSignal()
{
    if (const int signal = m_signals->take(); signal != 0)
        m_asked("signal " + std::to_string(signal));
}

// Session managers allow a cancel only after a request to interact with the user.
void EndRequests::endSession(QSessionManager& session)
{
    if (m_asked("the end of the session"))
        return;
    session.allowsErrorInteraction();
    session.cancel();
}

#include "moc_EndRequests.cpp"
