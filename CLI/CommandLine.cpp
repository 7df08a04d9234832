// SPDX-License-Identifier: MIT
#include "CLI/CommandLine.h"

#include "CLI/Conclusion.h"
#include "CLI/Destination.h"
#include "CLI/FirmwareChoice.h"
#include "CLI/Fleet/FleetCommand.h"
#include "CLI/Fleet/LastRecord.h"
#include "CLI/HelpText.h"
#include "CLI/LastLine.h"
#include "CLI/SafeReport.h"
#include "UI/Package/SystemCheck.h"
#include "UI/Text/PlainText.h"
#include "UI/vym_etc.h"
#include "VYM/ProtocolResult.h"
#include "VYM/vymMac.h"

#include <atomic>
#include <cstdlib>
#include <exception>

namespace {

constexpr unsigned kAllDebugTexts = 9; // above every level of the engine
constexpr std::size_t kDebugLimit = 1000; // bytes of one debug text

std::atomic<Display*> g_debugDisplay{nullptr};

void showDebugText(const char* text)
{
    std::string_view line(text);
    if (!line.empty() && line.back() == '\n')
        line.remove_suffix(1);
    try {
        if (auto* display = g_debugDisplay.load())
            display->line("debug: " + plainText(line, kDebugLimit));
    } catch (const std::exception&) { // loses this line
        return;
    }
}

// Enables the engine's debug texts while it lives.
class DebugTexts {
public:
    DebugTexts(bool wanted, Display& display)
    {
        if (!wanted)
            return;
        g_debugDisplay = &display;
        setDebugLogLv(kAllDebugTexts);
        setDebugSink(showDebugText);
    }
    ~DebugTexts()
    {
        setDebugSink(nullptr);
        g_debugDisplay = nullptr;
    }
    DebugTexts(const DebugTexts&) = delete;
    DebugTexts& operator=(const DebugTexts&) = delete;
};

Outcome textOutcome(const Options& options, std::string text)
{
    Outcome outcome;
    outcome.command = options.command;
    outcome.name = commandName(options.command);
    outcome.message = std::move(text);
    return outcome;
}

Outcome errorOutcome(const Workplace& place)
{
    Outcome outcome;
    outcome.command = place.options.command;
    outcome.exitCode = exitCodeOf(result::kSystem);
    outcome.verdict = Verdict::failed;
    outcome.name = resultName(result::kSystem);
    outcome.resultCode = result::kSystem;
    outcome.message = "This computer ran out of memory or threads.";
    outcome.bytesWentOut = place.bytesWentOut.value_or(true);
    outcome.areBytesUnknown = !place.bytesWentOut.has_value();
    outcome.next = outcome.bytesWentOut ? NextStep::checkPrinter : NextStep::retry;
    return outcome;
}

bool cannotAsk(const Options& options, const Console& console)
{
    return options.command == Command::update && !options.yes
        && (options.json || !isTerminal(console.in) || options.fleet.from == "-");
}

// The window refuses a system that the package is not for. A printer does not mind which system
// its firmware comes from, so here a person, or a script, is warned and decides.
std::string lookAtSystem(const PackageFacts& package, Workplace& place)
{
    const auto system = static_cast<std::int32_t>(get_system_version());
    const auto bounds = boundsOf(package);
    place.systemRemark = systemRemark(system, bounds);
    if (judgeSystem(system, bounds) != SystemVerdict::unsupported)
        return {};
    place.report.warn(place.systemRemark);
    return place.systemRemark;
}

// One printer, or many; words: empty for one.
Outcome runOnPrinters(const PackageFacts& package, const std::optional<FleetWords>& words,
                      Workplace& place)
{
    if (words)
        return runFleetCall(package, *words, place);
    auto [destination, outcome] = findDestination(place);
    if (destination.has_value())
        outcome = place.options.command == Command::check ? runCheck(package, place, *destination)
                                                          : runUpdate(package, place, *destination);
    return outcome;
}

OpenedPackage openedPackage(Workplace& place, StopCause& stop)
{
    const auto& options = place.options;
    PackageRequest request;
    request.path = options.package;
    request.trust.sha256 = options.sha256.value_or("");
    request.trust.key = options.key.value_or("");
    request.trust.wantsSum = isFleetCall(options); // every printer's process takes the same package
    request.shouldStop = [&] {
        const auto wake = place.session.check();
        if (wake == Wake::signal || wake == Wake::deadline)
            stop = wake == Wake::signal ? StopCause::user : StopCause::deadline;
        return stop != StopCause::none;
    };
    return openPackage(request);
}

Outcome runOnPackage(Workplace& place, const std::optional<FleetWords>& words)
{
    const auto& options = place.options;
    auto stop = StopCause::none;
    auto opened = openedPackage(place, stop);
    auto& package = opened.package;
    if (opened.state == PackageState::stopped)
        return concludeReadingStopped(options.command, stop);
    if (options.command == Command::doctor)
        return runDoctor(opened, place);
    if (options.command == Command::report)
        return runReport(opened, place);
    if (!package.has_value()) {
        auto outcome = packageOutcome(options, opened.problem);
        if (opened.state == PackageState::notTrusted)
            outcome.name = "package-not-trusted";
        return outcome;
    }
    if (options.command == Command::info)
        return runInfo(*package);
    if (options.command == Command::printers)
        return runPrinters(place);
    if (auto unfit = unfitForUpdate(*package); !unfit.empty())
        return packageOutcome(options, std::move(unfit));
    auto choice = chooseFirmware(*package, options);
    if (!choice.problem.empty())
        return usageOutcome(options, std::move(choice.problem));
    place.choice = std::move(choice.entries);
    if (options.port.has_value())
        package->portNumber = *options.port;
    const auto warning = lookAtSystem(*package, place);
    auto outcome = runOnPrinters(*package, words, place);
    if (!warning.empty())
        outcome.warning = warning + (outcome.warning.empty() ? "" : " ") + outcome.warning;
    return outcome;
}

Outcome runFleet(Workplace& place)
{
    const auto words = readFleetWords(place);
    if (words.stop != StopCause::none)
        return concludeReadingStopped(place.options.command, words.stop);
    return words.problem.empty() ? runOnPackage(place, words)
                                 : usageOutcome(place.options, words.problem);
}

Outcome run(Workplace& place)
{
    const auto& options = place.options;
    if (!options.usageError.empty())
        return usageOutcome(options, options.usageError);
    if (options.command == Command::help)
        return textOutcome(options, std::string(kHelpText));
    if (options.command == Command::version)
        return textOutcome(options, "vymkit-cli " VYMKIT_VERSION "\n");
    if (cannotAsk(options, place.console))
        return usageOutcome(options,
                            "With --json, with --from - or without a terminal, this call cannot "
                            "ask you to confirm the update: add --yes.");
    if (options.traceFile.has_value()) {
        if (const auto problem = place.trace.openFile(*options.traceFile); !problem.empty())
            return usageOutcome(options,
                                "The trace cannot be written to '" + plainText(*options.traceFile)
                                    + "': " + problem + ".");
    }
    if (options.deadline.has_value())
        place.session.setDeadline(*options.deadline);
    if (options.command == Command::history)
        return runHistory(options);
    return isFleetCall(options) ? runFleet(place) : runOnPackage(place, std::nullopt);
}

Outcome runSafely(Workplace& place)
{
    try {
        return run(place);
    } catch (const std::exception&) {
        return errorOutcome(place);
    }
}

// The facts to report if memory runs out, as far as they are known now.
LastFacts lastFacts(int argc, const char* const* argv)
{
    LastFacts last;
    last.json = wantsJson(argc, argv);
    last.exitCode = exitCodeOf(result::kSystem);
    last.name = resultName(result::kSystem);
    last.resultCode = result::kSystem;
    return last;
}

int endBriefly(const LastFacts& last, LastRecord& record, const Console& console)
{
    record.write(last);
    LastText room;
    Output(last.json ? console.out : console.err).writeLast(lastLine(last, room));
    return last.exitCode;
}

// Some functions of libraries may not throw and yet allocate; without memory they end the program,
// which still says so while this lives. None of them is called while an update runs.
class LastWords {
public:
    LastWords(const LastFacts& last, LastRecord& record, const Console& console)
        : m_last(last), m_record(record), m_console(console), m_former(std::set_terminate(&say))
    {
        s_current = this;
    }
    ~LastWords()
    {
        std::set_terminate(m_former);
        s_current = nullptr;
    }
    LastWords(const LastWords&) = delete;
    LastWords& operator=(const LastWords&) = delete;

    void follow(const Workplace& place) { m_place = &place; }

private:
    [[noreturn]] static void say()
    {
        auto last = s_current->m_last;
        if (s_current->m_place != nullptr)
            last.bytesWentOut = s_current->m_place->bytesWentOut;
        std::_Exit(endBriefly(last, s_current->m_record, s_current->m_console));
    }
    inline static const LastWords* s_current = nullptr;

    const LastFacts& m_last;
    LastRecord& m_record;
    const Console m_console;
    const Workplace* m_place = nullptr;
    const std::terminate_handler m_former;
};

// Runs the command and reports its outcome, in whatever way is possible.
int runAndReport(Workplace& place, const std::optional<MemberOrder>& order, LastRecord& record,
                 LastFacts last)
{
    Outcome outcome;
    try {
        outcome = runSafely(place);
        outcome.seconds = place.session.seconds();
        outcome.isOfFleet = isFleetCall(place.options);
        last.exitCode = outcome.exitCode;
        last.name = outcome.name;
        last.resultCode = outcome.resultCode;
        if (order)
            recordEnd(*order, outcome);
        record.done();
        place.report.finish(outcome);
    } catch (const std::exception&) {
        LastText room;
        last.bytesWentOut = place.bytesWentOut;
        last.seconds = place.session.seconds();
        record.write(last);
        place.report.finishBriefly(lastLine(last, room));
    }
    place.display.drain();
    if (place.isThreadLeft)
        std::_Exit(last.exitCode); // the remaining thread's data must not be destroyed before it
    return last.exitCode;
}

int runWhole(int argc, char** argv, PrintServer* printServer, const Console& console,
             LastFacts& last, LastRecord& record)
{
    LastWords words(last, record, console);
    const auto order = orderFromEnvironment();
    record.prepare(order);
    Session session;
    const auto options = parseOptions(argc, argv);
    last.command = commandName(options.command);
    last.json = options.json;
    Display display(console.err, options.noColour);
    const DebugTexts debugTexts(options.verbose, display);
    const auto made =
        options.json ? makeJsonReport(console.out) : makeHumanReport(console.out, display, options);
    SafeReport report(*made);
    PacketTrace trace(options.verbose ? &display : nullptr,
                      [&session] { return session.seconds(); });
    Workplace place{options, console, session, display, report, trace, printServer};
    words.follow(place);
    if (order && order->queue)
        place.queue = &*order->queue;
    return runAndReport(place, order, record, last);
}

} // namespace

int runCommandLine(int argc, char** argv, PrintServer* printServer, const Console& console)
{
    auto last = lastFacts(argc, argv);
    LastRecord record;
    try {
        return runWhole(argc, argv, printServer, console, last, record);
    } catch (const std::exception&) { // out of memory before anything began
        return endBriefly(last, record, console);
    }
}

int endWithoutMemory(int argc, char** argv)
{
    LastRecord record; // of nothing: a call that knows no printer yet
    return endBriefly(lastFacts(argc, argv), record, {});
}
