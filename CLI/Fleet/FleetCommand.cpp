// SPDX-License-Identifier: MIT
#include "CLI/Fleet/FleetCommand.h"

#include "CLI/Fleet/FleetList.h"
#include "CLI/Fleet/FleetView.h"
#include "CLI/Fleet/PrinterLines.h"
#include "CLI/Fleet/ResultsFile.h"
#include "CLI/PrinterLookup.h"
#include "UI/Text/PlainText.h"
#include "VYM/ProtocolResult.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLongestList = 64UL * 1024 * 1024; // far more than a list of printers needs
constexpr double kLeastDeadline = 0.001; // seconds; the option takes no 0
constexpr const char* kOwnProgram = "/proc/self/exe"; // also after it was replaced on the disk

// Reads to the end, or until a signal or the time limit comes.
void readAll(int descriptor, Workplace& place, std::string& text, FleetWords& words)
{
    std::array<char, 65536> bytes{};
    for (;;) {
        const auto wake = place.session.waitReadable(descriptor);
        if (wake == Wake::signal || wake == Wake::deadline) {
            words.stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
            return;
        }
        if (wake != Wake::readable)
            continue;
        const auto length = read(descriptor, bytes.data(), bytes.size());
        if (length < 0)
            words.problem = std::strerror(errno);
        if (length <= 0)
            return;
        text.append(bytes.data(), static_cast<std::size_t>(length));
        if (text.size() > kLongestList) {
            words.problem = "it is too long";
            return;
        }
    }
}

void readList(const std::string& path, Workplace& place, FleetWords& words)
{
    const bool isInput = path == "-";
    const int descriptor =
        isInput ? place.console.in : open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    std::string text;
    if (descriptor < 0)
        words.problem = std::strerror(errno);
    else
        readAll(descriptor, place, text, words);
    if (!isInput && descriptor >= 0)
        close(descriptor);
    if (!words.problem.empty()) {
        words.problem = "The list '" + plainText(path) + "' cannot be read: " + words.problem + ".";
        return;
    }
    auto lines = printerLines(text);
    words.problem = std::move(lines.problem);
    words.printers.insert(words.printers.end(), lines.printers.begin(), lines.printers.end());
}

bool hasQueue(const std::vector<PrinterWord>& words)
{
    return std::any_of(words.begin(), words.end(),
                       [](const auto& word) { return word.kind == PrinterWord::Kind::queue; });
}

Outcome withoutServer(const Options& options, const std::string& problem)
{
    auto outcome = printerOutcome(options, "print-server-unreachable",
                                  "The print server could not be asked: " + plainText(problem));
    outcome.exitCode = exitcode::kNoPrintServer;
    return outcome;
}

// A whole call for many printers.
class FleetCall {
public:
    FleetCall(const PackageFacts& package, Workplace& place)
        : m_package(package), m_place(place), m_options(place.options)
    {
        if (m_options.fleet.results)
            m_results.emplace(*m_options.fleet.results);
    }

    Outcome run(const FleetWords& words)
    {
        if (auto problem = choose(words.printers); problem)
            return std::move(*problem);
        leaveOutEarlier();
        if (!m_members.empty() && !m_options.yes && m_options.command == Command::update) {
            if (const auto stop = askPerson(m_place, question()); stop != StopCause::none)
                return concludeReadingStopped(m_options.command, stop);
        }
        runMembers();
        return conclusion();
    }

private:
    std::optional<Outcome> choose(std::vector<PrinterWord> words);
    void leaveOutEarlier();
    [[nodiscard]] std::string question() const;
    void runMembers();
    void sum(const FleetEnds& ends);
    [[nodiscard]] MemberCommand commandOf(std::size_t index) const;
    [[nodiscard]] std::optional<double> deadlineOfMember() const;
    [[nodiscard]] std::string withoutResult(std::size_t index, const std::string& how,
                                            bool ran) const;
    [[nodiscard]] Outcome conclusion() const;
    [[nodiscard]] std::vector<std::string> names() const;

    const PackageFacts& m_package;
    Workplace& m_place;
    const Options& m_options;
    std::optional<ResultsFile> m_results;
    std::vector<FleetMember> m_members; // those to run
    FleetSummary m_summary;
    NextStep m_next = NextStep::none;
    bool m_bytesWentOut = false; // to any printer
    bool m_areBytesUnknown = false; // of any printer
};

// Finds the devices; returns the outcome if there are none.
std::optional<Outcome> FleetCall::choose(std::vector<PrinterWord> words)
{
    LookupResult looked;
    const bool looks = m_options.all || hasQueue(words);
    if (looks)
        looked = lookUpPrinters(m_place);
    if (looked.stop != StopCause::none)
        return concludeLookupStopped(m_options.command, looked.stop);
    if (m_options.all && !looked.made.serverProblem.empty())
        return withoutServer(m_options, looked.made.serverProblem);
    if (m_options.all) {
        const auto candidates = everyCandidate(looked.made);
        words.insert(words.end(), candidates.begin(), candidates.end());
    }
    auto list = fleetList(words, looks ? &looked.made : nullptr);
    if (list.members.empty())
        return printerOutcome(m_options, "no-such-printer",
                              m_options.all ? "No printer can be updated from this package. Run "
                                              "\"vymkit-cli printers --all\" to see every printer."
                                            : "The list names no printer.");
    m_members = std::move(list.members);
    for (auto& name : list.sameDevice)
        m_summary.add(MemberClass::sameDevice, std::move(name));
    return std::nullopt;
}

// A printer that has ended well stays so; one that needs a person waits for one.
void FleetCall::leaveOutEarlier()
{
    if (!m_results)
        return;
    const auto earlier = m_results->ends(commandName(m_options.command));
    std::vector<FleetMember> rest;
    for (auto& member : m_members) {
        const auto found = earlier.find(member.word.text);
        if (found == earlier.end() || found->second.next == nextStepName(NextStep::retry))
            rest.push_back(std::move(member));
        else if (isWell(found->second.memberClass))
            m_summary.add(MemberClass::skipped, member.word.text);
        else
            m_summary.add(MemberClass::leftAlone, member.word.text, found->second.message);
    }
    m_members = std::move(rest);
}

std::string FleetCall::question() const
{
    auto text = std::to_string(m_members.size())
        + (m_members.size() == 1 ? " printer" : " printers") + " will be updated with:\n";
    for (const auto& firmware : m_package.firmware) {
        if (m_place.choice.wants(firmware.number))
            text += "  " + firmware.displayName + " " + firmware.displayVersion + "\n";
    }
    return text
        + "Do not switch a printer off, and do not print, until its update has finished.\n"
          "Start the updates? [y/N] ";
}

std::vector<std::string> FleetCall::names() const
{
    std::vector<std::string> texts;
    texts.reserve(m_members.size());
    for (const auto& member : m_members)
        texts.push_back(member.word.text);
    return texts;
}

void FleetCall::runMembers()
{
    const auto& fleet = m_options.fleet;
    FleetOrders orders;
    orders.count = m_members.size();
    orders.limits.jobs = static_cast<std::size_t>(fleet.jobs);
    orders.limits.canary = static_cast<std::size_t>(fleet.canary.value_or(0));
    orders.limits.maxFailures = static_cast<std::size_t>(fleet.maxFailures.value_or(0));
    orders.commandOf = [this](std::size_t index) { return commandOf(index); };
    orders.withoutResult = [this](std::size_t index, const std::string& how, bool ran) {
        return withoutResult(index, how, ran);
    };
    const auto shown = names();
    const auto view = makeFleetView(shown, m_place);
    sum(runFleet(orders, m_place.session, *view));
}

void FleetCall::sum(const FleetEnds& ends)
{
    assert(ends.members.size() == m_members.size());
    m_summary.wasStopped = ends.stop != Wake::tick;
    m_summary.isCanaryBad = ends.isCanaryBad;
    m_summary.hadTooManyFailures = ends.hadTooManyFailures;
    for (std::size_t i = 0; i < m_members.size(); ++i) {
        const auto& end = ends.members[i];
        m_summary.add(end.memberClass, m_members[i].word.text, end.message);
        const bool ran = end.memberClass != MemberClass::notStarted;
        m_bytesWentOut = m_bytesWentOut || end.bytesWentOut.value_or(false);
        m_areBytesUnknown = m_areBytesUnknown || (ran && !end.bytesWentOut);
        // The most urgent one stands last in the list of steps.
        for (const auto step :
             {NextStep::retry, NextStep::chooseOtherPackage, NextStep::checkPrinter}) {
            if (end.next == nextStepName(step))
                m_next = std::max(m_next, step);
        }
        if (end.memberClass == MemberClass::notStarted)
            m_next = std::max(m_next, NextStep::retry);
    }
    if (!m_summary.of(MemberClass::leftAlone).empty())
        m_next = NextStep::checkPrinter;
}

// The rest of the call's time, or the limit for each printer, whichever is shorter.
std::optional<double> FleetCall::deadlineOfMember() const
{
    auto limit = m_options.fleet.deadlineEach;
    if (m_options.deadline) {
        const auto left = std::max(*m_options.deadline - m_place.session.seconds(), kLeastDeadline);
        limit = std::min(limit.value_or(left), left);
    }
    return limit;
}

MemberCommand FleetCall::commandOf(std::size_t index) const
{
    assert(index < m_members.size());
    const auto& member = m_members[index];
    MemberCommand command{kOwnProgram, {"vymkit-cli", commandName(m_options.command)}, {}};
    auto& words = command.words;
    words.insert(words.end(), m_options.fleet.passedOn.begin(), m_options.fleet.passedOn.end());
    words.push_back(std::string(optionOf(member.word.kind)) + "=" + member.word.text);
    // Each process reads the package by itself: it must still be the one that this call has read.
    if (!m_options.sha256 && !m_package.sha256.empty())
        words.push_back("--sha256=" + m_package.sha256);
    words.emplace_back("--json");
    if (m_options.command == Command::update)
        words.emplace_back("--yes");
    if (const auto limit = deadlineOfMember())
        words.push_back("--deadline=" + std::to_string(*limit));
    command.variable = asEnvironment({member.word.text, m_options.fleet.results, member.queue});
    return command;
}

// A process that ran may have sent anything by then.
std::string FleetCall::withoutResult(std::size_t index, const std::string& how, bool ran) const
{
    assert(index < m_members.size());
    Outcome outcome;
    outcome.command = m_options.command;
    outcome.verdict = Verdict::failed;
    outcome.exitCode = exitCodeOf(ran ? result::kMissingArgument : result::kSystem);
    outcome.name = ran ? "process-ended" : std::string(resultName(result::kSystem));
    outcome.next = ran ? NextStep::checkPrinter : NextStep::retry;
    outcome.message = ran
        ? "The process that dealt with this printer ended before it could say how it went"
            + (how.empty() ? "" : " (" + how + ")")
            + ". Look at the printer before it is updated again."
        : "No process could be started for this printer: " + how + ".";
    outcome.areBytesUnknown = ran && m_options.command == Command::update;
    outcome.bytesWentOut = outcome.areBytesUnknown;
    auto line = resultAsJson(outcome);
    if (m_results)
        static_cast<void>(m_results->append(withPrinter(line, m_members[index].word.text)));
    return line;
}

Outcome FleetCall::conclusion() const
{
    Outcome outcome;
    outcome.command = m_options.command;
    outcome.exitCode = exitCodeOf(m_summary);
    outcome.message = countsText(m_summary);
    outcome.next = m_next;
    outcome.bytesWentOut = m_bytesWentOut || m_areBytesUnknown;
    outcome.areBytesUnknown = m_areBytesUnknown && !m_bytesWentOut;
    if (outcome.exitCode == exitcode::kStopped) {
        outcome.verdict = Verdict::stopped;
        outcome.name = "stopped";
        outcome.next = std::max(outcome.next, NextStep::retry);
    } else if (outcome.exitCode != exitcode::kDone) {
        outcome.verdict = Verdict::failed;
        outcome.name = "some-failed";
    } else if (!m_summary.of(MemberClass::updated).empty()) {
        outcome.verdict = Verdict::updated;
        outcome.name = resultName(result::kSuccess);
    } else if (!m_summary.of(MemberClass::updateAvailable).empty()) {
        outcome.verdict = Verdict::updateAvailable;
        outcome.name = "update-available";
    } else {
        outcome.verdict = Verdict::nothingToUpdate;
        outcome.name = resultName(result::kNotApplicable);
    }
    outcome.fleet = m_summary;
    return outcome;
}

} // namespace

FleetWords readFleetWords(Workplace& place)
{
    const auto& fleet = place.options.fleet;
    FleetWords words;
    words.printers = fleet.printers;
    if (fleet.from)
        readList(*fleet.from, place, words);
    if (words.problem.empty() && words.stop == StopCause::none && fleet.results) {
        if (const auto problem = ResultsFile(*fleet.results).prepare(); !problem.empty())
            words.problem = "The results cannot be written to '" + plainText(*fleet.results)
                + "': " + problem + ".";
    }
    return words;
}

Outcome runFleetCall(const PackageFacts& package, const FleetWords& words, Workplace& place)
{
    return FleetCall(package, place).run(words);
}

void recordEnd(const MemberOrder& order, Outcome& outcome)
{
    if (!order.results)
        return;
    const auto problem =
        ResultsFile(*order.results).append(withPrinter(resultAsJson(outcome), order.printer));
    if (!problem.empty())
        outcome.warning += (outcome.warning.empty() ? "" : " ")
            + ("This end could not be recorded: " + problem + ".");
}
