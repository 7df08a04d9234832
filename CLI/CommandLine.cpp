#include "CLI/CommandLine.h"

#include "CLI/Conclusion.h"
#include "CLI/Destination.h"
#include "CLI/FirmwareChoice.h"
#include "CLI/Fleet/FleetCommand.h"
#include "CLI/HelpText.h"
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
    if (auto* display = g_debugDisplay.load())
        display->line("debug: " + plainText(line, kDebugLimit));
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

Outcome errorOutcome(const Options& options)
{
    Outcome outcome;
    outcome.command = options.command;
    outcome.exitCode = exitCodeOf(result::kSystem);
    outcome.verdict = Verdict::failed;
    outcome.name = resultName(result::kSystem);
    outcome.resultCode = result::kSystem;
    outcome.message = "This computer ran out of memory or threads.";
    outcome.next = NextStep::checkPrinter; // its progress is unknown
    return outcome;
}

bool cannotAsk(const Options& options, const Console& console)
{
    return options.command == Command::update && !options.yes
        && (options.json || !isTerminal(console.in) || options.fleet.from == "-");
}

SystemBounds boundsOf(const PackageFacts& package)
{
    if (!package.lowestSystem.has_value())
        return {};
    return {static_cast<std::int32_t>(package.highestSystem.value_or(-1)),
            static_cast<std::int32_t>(*package.lowestSystem)};
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
    auto& [package, problem, state] = opened;
    if (state == PackageState::stopped)
        return concludeReadingStopped(options.command, stop);
    if (options.command == Command::doctor)
        return runDoctor(opened, place);
    if (options.command == Command::report)
        return runReport(opened, place);
    if (!package.has_value()) {
        auto outcome = packageOutcome(options, problem);
        if (state == PackageState::notTrusted)
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
    outcome.warning = warning;
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
                            "Nobody can be asked here whether the update may start: add --yes.");
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
        return errorOutcome(place.options);
    }
}

} // namespace

int runCommandLine(int argc, char** argv, PrintServer* printServer, const Console& console)
{
    Session session;
    const auto options = parseOptions(argc, argv);
    Display display(console.err, options.noColour);
    const DebugTexts debugTexts(options.verbose, display);
    const auto report =
        options.json ? makeJsonReport(console.out) : makeHumanReport(console.out, display, options);
    PacketTrace trace(options.verbose ? &display : nullptr,
                      [&session] { return session.seconds(); });
    Workplace place{options, console, session, display, *report, trace, printServer};
    const auto order = orderFromEnvironment();
    if (order && order->queue)
        place.queue = &*order->queue;
    auto outcome = runSafely(place);
    outcome.seconds = session.seconds();
    outcome.isOfFleet = isFleetCall(options);
    if (order)
        recordEnd(*order, outcome);
    report->finish(outcome);
    display.drain();
    if (place.isThreadLeft)
        std::_Exit(outcome.exitCode); // the remaining thread's data must not be destroyed before it
    return outcome.exitCode;
}
