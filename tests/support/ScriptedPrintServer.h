// SPDX-License-Identifier: MIT
// A print server with scripted queues, or with a reason why it has none.
#pragma once
#include "Platform/PrintServer.h"

#include <functional>

class ScriptedPrintServer : public PrintServer {
public:
    // A typical queue: with a lower-case identifier and a location.
    PrintQueue& queue(const std::string& name, const std::string& uri,
                      const std::string& model = "Driver 100")
    {
        return m_queues.emplace_back(PrintQueue{name, name + "-id", "Floor 1", uri, model});
    }
    void refuse(std::string reason) { m_reason = std::move(reason); }
    std::function<void()> whileAsked = [] {};

    bool queues(std::vector<PrintQueue>& found, std::string& reason) override
    {
        ++asked;
        whileAsked();
        reason = m_reason;
        found = m_reason.empty() ? m_queues : std::vector<PrintQueue>();
        return m_reason.empty();
    }
    int asked = 0;

private:
    std::vector<PrintQueue> m_queues;
    std::string m_reason;
};
