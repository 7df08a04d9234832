// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetView.h"

#include "CLI/Output.h"
#include "UI/Text/PlainText.h"

#include <cassert>
#include <cmath>
#include <map>
#include <nlohmann/json.hpp>

namespace {

using ReadJson = nlohmann::json;

constexpr std::size_t kLongestMessage = 1000; // bytes: longer than any of ours

StopCause causeOf(Wake wake)
{
    return wake == Wake::signal ? StopCause::user : StopCause::deadline;
}

class JsonView : public FleetObserver {
public:
    JsonView(const std::vector<std::string>& names, Workplace& place)
        : m_names(names), m_place(place), m_output(place.console.out)
    {
    }
    ~JsonView() override { m_output.drain(); }
    JsonView(const JsonView&) = delete;
    JsonView& operator=(const JsonView&) = delete;

    void started(std::size_t /*index*/) override { }
    void line(std::size_t index, const std::string& line) override
    {
        assert(index < m_names.size());
        m_output.writeProgress(withPrinter(line, m_names[index]) + "\n");
    }
    void ended(std::size_t index, const std::string& line, const MemberEnd& /*end*/) override
    {
        assert(index < m_names.size());
        m_output.write(withPrinter(line, m_names[index]) + "\n");
    }
    void waited() override { m_output.write(""); } // what a slow reader has left over
    void stopping(Wake cause) override
    {
        m_output.writeProgress(stoppingAsJson(causeOf(cause), m_place.session.seconds()) + "\n");
    }

private:
    const std::vector<std::string>& m_names;
    Workplace& m_place;
    Output m_output; // all lines of the run; the report writes only after it
};

// A status line in a few words: "sending firmware 1 of 2  45 %".
std::string stageOf(const std::string& line)
{
    const auto json = ReadJson::parse(line, nullptr, false);
    if (!json.is_object() || json.value("type", "") != "status")
        return {};
    auto text = json.value("state_name", "");
    const auto count = json.value("firmware_count", 0);
    const auto number = json.value("firmware_number", 0);
    if (number != 0 && count > 1)
        text += " firmware " + std::to_string(number) + " of " + std::to_string(count);
    if (const auto found = json.find("progress"); found != json.end() && found->is_number())
        text += "  " + std::to_string(std::lround(found->get<double>())) + " %";
    return plainText(text);
}

class HumanView : public FleetObserver {
public:
    HumanView(const std::vector<std::string>& names, Workplace& place)
        : m_names(names), m_place(place)
    {
    }
    ~HumanView() override { m_place.display.clearLive(); }
    HumanView(const HumanView&) = delete;
    HumanView& operator=(const HumanView&) = delete;

    void started(std::size_t index) override
    {
        assert(index < m_names.size());
        m_running[index] = "starting";
    }
    void line(std::size_t index, const std::string& line) override
    {
        if (!m_place.display.hasLiveLine() || m_place.options.quiet)
            return;
        if (auto stage = stageOf(line); !stage.empty())
            m_running[index] = std::move(stage);
    }
    void ended(std::size_t index, const std::string& /*line*/, const MemberEnd& end) override;
    void waited() override { show(); }
    void stopping(Wake cause) override
    {
        m_place.report.stopping(causeOf(cause), m_place.session.seconds());
    }

private:
    void show();
    [[nodiscard]] std::string countLine() const;

    const std::vector<std::string>& m_names;
    Workplace& m_place;
    std::map<std::size_t, std::string> m_running; // what each does
    std::size_t m_ended = 0;
    std::size_t m_failures = 0;
};

void HumanView::ended(std::size_t index, const std::string& /*line*/, const MemberEnd& end)
{
    assert(m_running.contains(index));
    const bool well = isWell(end.memberClass);
    m_running.erase(index);
    ++m_ended;
    m_failures += well ? 0 : 1;
    if (m_place.options.quiet)
        return;
    std::string word = memberClassName(end.memberClass);
    for (auto& c : word)
        c = c == '_' ? ' ' : c;
    m_place.display.line("[" + std::to_string(m_ended) + "/" + std::to_string(m_names.size()) + "] "
                         + plainText(m_names[index]) + ": " + word
                         + (well ? "" : ": " + plainText(end.message, kLongestMessage)));
    show();
}

std::string HumanView::countLine() const
{
    const auto waiting = m_names.size() - m_ended - m_running.size();
    return std::to_string(m_ended) + " of " + std::to_string(m_names.size()) + " ended"
        + (m_failures != 0 ? " (" + std::to_string(m_failures) + " not well)" : "") + ", "
        + std::to_string(m_running.size()) + " running, " + std::to_string(waiting) + " waiting";
}

void HumanView::show()
{
    if (!m_place.display.hasLiveLine() || m_place.options.quiet)
        return;
    std::vector<std::string> lines;
    lines.reserve(m_running.size() + 1);
    for (const auto& [index, stage] : m_running)
        lines.push_back("  " + plainText(m_names[index]) + "  " + stage);
    m_place.display.liveLines(std::move(lines), countLine());
}

} // namespace

std::unique_ptr<FleetObserver> makeFleetView(const std::vector<std::string>& names,
                                             Workplace& place)
{
    if (place.options.json)
        return std::make_unique<JsonView>(names, place);
    return std::make_unique<HumanView>(names, place);
}
