// SPDX-License-Identifier: MIT
#include "UI/Run/RunLog.h"

#include "UI/Run/UpdateRun.h"
#include "UI/Text/PlainText.h"

#include <array>
#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <ctime>
#include <new>
#include <unistd.h>

namespace {

std::string localTime(const char* format)
{
    const auto now = std::time(nullptr);
    std::tm time{};
    localtime_r(&now, &time);
    std::array<char, 64> text{};
    std::strftime(text.data(), text.size(), format, &time);
    return text.data();
}

std::string fullTime()
{
    return localTime("%Y-%m-%d %H:%M:%S %z");
}

std::string firmwareName(std::size_t number)
{
    return "firmware " + std::to_string(number);
}

std::string sentText(const tag_entryoutcome& outcome)
{
    if (!outcome.m_bytesWentOut)
        return "nothing sent";
    const auto bytes = "sent " + std::to_string(outcome.m_bytesSent) + " of "
        + std::to_string(outcome.m_bytesTotal) + " bytes";
    return bytes + (outcome.m_confirmed ? ", confirmed by the printer" : ", not confirmed");
}

// A line for which there is no memory is left out: a log never ends a run.
template <class Write> void guarded(Write write)
{
    try {
        write();
    } catch (const std::bad_alloc&) {
    }
}

} // namespace

RunLog::RunLog(const std::string& folder)
{
    std::signal(SIGXFSZ, SIG_IGN);
    auto log = createLog(folder);
    m_descriptor = log.descriptor;
    m_path = std::move(log.path);
    m_problem = std::move(log.problem);
}

RunLog::~RunLog()
{
    if (m_descriptor >= 0)
        close(m_descriptor);
}

void RunLog::begin(const RunLogFacts& facts)
{
    line("program", facts.program);
    line("started", fullTime());
    line("package", facts.packageFolder);
}

void RunLog::badPackage(const RunLogFacts& facts, std::string_view problem)
{
    begin(facts);
    line("problem", problem);
}

void RunLog::start(const RunLogFacts& facts)
{
    m_firmwareCount = facts.firmware.size();
    begin(facts);
    line("model", facts.model);
    for (std::size_t i = 0; i < facts.firmware.size(); ++i)
        line(firmwareName(i + 1), facts.firmware[i].name + " " + facts.firmware[i].version);
    if (!facts.printer.empty())
        line("printer", facts.printer);
    line("address", facts.address);
}

void RunLog::note(std::string_view text)
{
    guarded([&] { line("note", text); });
}

void RunLog::look(const tag_devinfo& record)
{
    if (record.m_updateState == m_state && record.m_firmwareNumber == m_firmwareNumber)
        return;
    m_state = record.m_updateState;
    m_firmwareNumber = record.m_firmwareNumber;
    guarded([&] {
        std::string text = stateName(m_state);
        if (m_firmwareNumber != 0)
            text += ", " + firmwareName(m_firmwareNumber) + " " + firmwareNameOf(record);
        line(localTime("%H:%M:%S"), text);
    });
}

void RunLog::outcome(const tag_entryoutcome& outcome)
{
    assert(outcome.m_number > m_outcomeCount);
    m_outcomeCount = outcome.m_number;
    guarded([&] {
        line("outcome of " + firmwareName(outcome.m_number),
             std::string(reasonName(outcome.m_reason)) + "; " + sentText(outcome) + "; "
                 + std::to_string(outcome.m_result) + " "
                 + std::string(resultName(outcome.m_result)));
    });
}

void RunLog::end(std::string_view name, std::optional<int> code)
{
    guarded([&] {
        for (auto number = m_outcomeCount + 1; number <= m_firmwareCount; ++number)
            line("outcome of " + firmwareName(number), "not reached");
        line("result", (code.has_value() ? std::to_string(*code) + " " : "") + std::string(name));
        line("ended", fullTime());
    });
}

void RunLog::verdict(std::string_view name)
{
    guarded([&] { line("verdict", std::string(name) + ", " + fullTime()); });
}

void RunLog::line(std::string_view name, std::string_view text)
{
    write(std::string(name) + ": " + plainText(text, kLogLineLimit) + "\n");
}

void RunLog::write(std::string_view text)
{
    while (m_descriptor >= 0 && !text.empty()) {
        const auto written = ::write(m_descriptor, text.data(), text.size());
        if (written > 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            const int error = errno;
            close(m_descriptor);
            m_descriptor = -1;
            m_problem = m_path + ": " + std::strerror(error);
        }
    }
}
