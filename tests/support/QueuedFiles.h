// SPDX-License-Identifier: MIT
// Questions for files for tests: shows nothing, takes the answers from a queue.
#pragma once
#include "UI/Widgets/FileQuestions.h"

#include <deque>

class QueuedFiles : public FileQuestions {
public:
    void queueFile(const std::string& file) { m_files.push_back(file); }

    std::string fileToOpen(const std::string& /*title*/,
                           const std::vector<std::string>& /*filters*/) override
    {
        return next();
    }
    std::string fileToSave(const std::string& /*title*/, const std::string& suggested) override
    {
        lastSuggested = suggested;
        return next();
    }
    std::string lastSuggested;

private:
    // With an empty queue, no file is chosen.
    std::string next()
    {
        if (m_files.empty())
            return {};
        auto file = m_files.front();
        m_files.pop_front();
        return file;
    }
    std::deque<std::string> m_files;
};
