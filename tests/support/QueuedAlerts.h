// SPDX-License-Identifier: MIT
// Alerts for tests: shows nothing, takes the answers from a queue, and keeps the questions.
#pragma once
#include "UI/Widgets/Alerts.h"

#include <deque>
#include <vector>

class QueuedAlerts : public Alerts {
public:
    void queueAnswer(int answer) { m_answers.push_back(answer); }

    // With an empty queue, the alert is dismissed without a button.
    int run(const Alert& asked) override
    {
        m_asked.push_back(asked);
        if (m_answers.empty())
            return alert::kOther;
        const auto answer = m_answers.front();
        m_answers.pop_front();
        return answer;
    }

    [[nodiscard]] const std::vector<Alert>& asked() const { return m_asked; }
    [[nodiscard]] bool hasAnswersLeft() const { return !m_answers.empty(); }

private:
    std::deque<int> m_answers;
    std::vector<Alert> m_asked;
};
