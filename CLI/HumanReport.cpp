// SPDX-License-Identifier: MIT
#include "CLI/HelpText.h"
#include "CLI/Messages.h"
#include "CLI/ProgressText.h"
#include "CLI/Report.h"
#include "CLI/Tables.h"
#include "CLI/Terminal.h"
#include "UI/Support/UdevRule.h"
#include "UI/Text/TextKeys.h"

#include <cmath>

namespace {

constexpr const char* kGreen = "\x1b[32m";
constexpr const char* kYellow = "\x1b[33m";
constexpr const char* kRed = "\x1b[31m";
constexpr int kPlainStep = 10; // percent between two plain lines

const char* colourOf(Verdict verdict)
{
    if (verdict == Verdict::updated || verdict == Verdict::updateAvailable
        || verdict == Verdict::nothingToUpdate || verdict == Verdict::listed
        || verdict == Verdict::history || verdict == Verdict::ready || verdict == Verdict::saved)
        return kGreen;
    return verdict == Verdict::stopped ? kYellow : kRed;
}

bool isError(Verdict verdict)
{
    return colourOf(verdict) != kGreen;
}

class HumanReport : public Report {
public:
    HumanReport(int output, Display& display, const Options& options)
        : m_output(output), m_outputColours(canColour(output, options.noColour)),
          m_outputColumns(textColumnsOf(output)), m_quiet(options.quiet), m_display(display)
    {
    }

    void waiting(const std::string& stage, double seconds) override;
    void status(const StatusView& view) override;
    void warn(const std::string& text) override;
    void quiet(double silence, double seconds) override;
    void stopping(StopCause cause, double seconds) override;
    void finish(const Outcome& outcome) override;
    void finishBriefly(std::string_view line) override { m_display.last(line); }

private:
    void follow(const StatusView& view);
    void showPlain();
    static std::string verdictText(const Outcome& outcome, bool colours, std::size_t columns);

    Output m_output;
    const bool m_outputColours;
    const std::size_t m_outputColumns;
    const bool m_quiet;
    Display& m_display;
    ProgressParts m_parts;
    std::optional<tag_devinfo> m_last;
    double m_lastChange = 0; // on the clock of the views
    std::string m_plainStage; // the stage of the last plain line
    int m_plainPercent = 0;
};

void HumanReport::waiting(const std::string& stage, double seconds)
{
    if (m_quiet || stage.empty())
        return;
    if (m_parts.stage != stage)
        m_lastChange = seconds;
    m_parts.stage = stage;
    m_parts.stageTellsWho = true;
    m_parts.seconds = seconds;
    m_parts.silence = seconds - m_lastChange;
    if (m_display.hasLiveLine())
        m_display.live(progressLine(m_parts, m_display.columns()));
    else
        showPlain();
}

void HumanReport::status(const StatusView& view)
{
    if (m_quiet || view.step.endCode.has_value())
        return;
    follow(view);
    if (m_display.hasLiveLine())
        m_display.live(progressLine(m_parts, m_display.columns()));
    else
        showPlain();
}

// Applies the step's changes; fields that it does not set stay unchanged.
void HumanReport::follow(const StatusView& view)
{
    if (!m_last.has_value())
        m_parts.stage = englishText(textkey::kStateConnection, {});
    m_parts.stageTellsWho = false;
    if (!m_last.has_value() || !isSameRecord(*m_last, view.record))
        m_lastChange = view.seconds;
    m_last = view.record;
    m_parts.seconds = view.seconds;
    m_parts.silence = view.seconds - m_lastChange;
    // Percent and bytes of one look: "0 %" never stands beside "300.0 of 300.0 KiB".
    if (view.step.progress.has_value()) {
        m_parts.percent = view.step.progress;
        m_parts.bytesDone = view.record.m_bytesDone;
        m_parts.bytesTotal = view.record.m_bytesTotal;
    }
    if (!view.step.textKey.has_value())
        return;
    MessageFacts facts;
    facts.number = std::to_string(view.step.number.value_or(1));
    facts.count = std::to_string(view.firmwareCount);
    m_parts.stage = englishText(*view.step.textKey, facts);
    if (!view.displayName.empty())
        m_parts.stage += " (" + view.displayName + ")";
}

// One line for each stage, and for each tenth of it.
void HumanReport::showPlain()
{
    const bool known = m_parts.percent.has_value() && std::isfinite(*m_parts.percent);
    const auto percent = known ? static_cast<int>(std::min(*m_parts.percent, 100.0)) : 0;
    const auto step = percent / kPlainStep * kPlainStep;
    if (m_parts.stage == m_plainStage && step <= m_plainPercent)
        return;
    m_display.line(m_parts.stage + (step > 0 ? ": " + std::to_string(step) + " %" : ""));
    m_plainStage = m_parts.stage;
    m_plainPercent = step;
}

void HumanReport::warn(const std::string& text)
{
    m_display.line(wrapped("Warning: " + text, m_display.textColumns()));
}

void HumanReport::quiet(double silence, double seconds)
{
    if (m_quiet)
        return;
    m_display.line(wrapped("Nothing has changed for " + std::to_string(std::lround(silence))
                               + " seconds, since " + clockText(seconds - silence)
                               + " of this run. That can be normal: some printers write for many "
                                 "minutes without a sign. Do not switch the printer off, do not "
                                 "unplug anything, and do not kill this program. --deadline S or "
                                 "--stall-limit S would end such a wait.",
                           m_display.textColumns()));
}

std::string whyStopping(StopCause cause)
{
    if (cause == StopCause::stall)
        return "The printer has shown no progress for as long as --stall-limit allows";
    return cause == StopCause::deadline ? "The time limit is reached" : "You asked to stop";
}

void HumanReport::stopping(StopCause cause, double /*seconds*/)
{
    m_display.line(
        wrapped(whyStopping(cause)
                    + ". A transfer to the printer is never cut off: the run ends as soon as the "
                      "printer can be left. Once the first firmware is being handled, all of them "
                      "are still sent; only the wait until they are written is left out. Do not "
                      "switch the printer off.",
                m_display.textColumns()));
}

std::string HumanReport::verdictText(const Outcome& outcome, bool colours, std::size_t columns)
{
    const auto word = verdictWord(outcome.verdict);
    if (word.empty())
        return outcome.message;
    const auto title = outcome.title.empty() ? "" : " (" + outcome.title + ")";
    const auto text = wrapped(word + title + ": " + outcome.message, columns) + "\n";
    return colours ? colourOf(outcome.verdict) + word + "\x1b[0m" + text.substr(word.size()) : text;
}

std::string warningText(const Outcome& outcome, std::size_t columns)
{
    std::string text;
    for (const auto& firmware : outcome.firmware) {
        if (!firmware.warning.empty())
            text += wrapped("Warning: firmware " + std::to_string(firmware.firmware.number) + " ("
                                + firmware.firmware.displayName + "): " + firmware.warning,
                            columns)
                + "\n";
    }
    return text;
}

std::string tableOf(const Outcome& outcome, std::size_t columns)
{
    if (outcome.command == Command::doctor)
        return findingTable(outcome.findings);
    if (outcome.command == Command::report)
        return outcome.log;
    if (outcome.command == Command::history)
        return outcome.log.empty() ? historyTable(outcome.pastRuns, columns) : outcome.log;
    if (outcome.fleet)
        return attentionText(*outcome.fleet);
    return outcome.printers ? printerTable(*outcome.printers, columns)
                            : firmwareTable(outcome, columns);
}

void HumanReport::finish(const Outcome& outcome)
{
    m_display.clearLive();
    const bool goesToErrors = outcome.verdict != Verdict::shown && isError(outcome.verdict);
    // Never wrapped: it is for copying.
    const auto rule = outcome.notPermitted ? "udev rule: " + udevRuleLine() + "\n" : "";
    const auto rows = tableOf(outcome, m_outputColumns);
    if (goesToErrors)
        m_display.prompt(verdictText(outcome, m_display.hasColours(), m_display.textColumns())
                         + rule + warningText(outcome, m_display.textColumns()));
    else {
        const auto text = verdictText(outcome, m_outputColours, m_outputColumns) + rule
            + warningText(outcome, m_outputColumns);
        m_output.write(text + (text.empty() || rows.empty() ? "" : "\n"));
    }
    if (outcome.verdict == Verdict::wrongUsage && outcome.command == Command::none)
        m_display.line(commandsText());
    if (outcome.verdict == Verdict::wrongUsage)
        m_display.line("Run \"vymkit-cli --help\" to see what is right.");
    if (outcome.package.has_value())
        m_output.write(packageTable(*outcome.package, m_outputColumns));
    m_output.write(rows);
    m_output.drain();
}

} // namespace

std::unique_ptr<Report> makeHumanReport(int outputDescriptor, Display& display,
                                        const Options& options)
{
    return std::make_unique<HumanReport>(outputDescriptor, display, options);
}
