// SPDX-License-Identifier: MIT
#include "CLI/Options.h"

#include "CLI/LineWords.h"
#include "CLI/OptionText.h"
#include "UI/Text/PlainText.h"
#include "VYM/Sha256.h"

#include <CLI/CLI.hpp>
#include <array>

namespace {

constexpr int kHighestPort = 65535;
constexpr int kHighestRun = 1000000; // of the history: more than any folder of logs holds
constexpr const char* kWhatToDo =
    "Say what to do: info, printers, check, update, history, doctor or report.";

// Options of a call for many printers that are not handed on to the process of each printer.
constexpr std::array<std::string_view, 17> kNotPassedOn = {
    "--address", "-a",     "--printer", "--uri",          "--all",      "--from",
    "--results", "--jobs", "--canary",  "--max-failures", "--deadline", "--deadline-each",
    "--json",    "--yes",  "-y",        "--quiet",        "-q"};

struct Words {
    std::vector<std::string> addresses;
    std::vector<std::string> printers;
    std::vector<std::string> uris;
    std::string from;
    std::string results;
    std::string jobs;
    std::string canary;
    std::string maxFailures;
    std::string deadlineEach;
    std::string package;
    std::string sha256;
    std::string key;
    std::string deadline;
    std::string stallLimit;
    std::string lockTimeout;
    std::string verify;
    std::string port;
    std::string trace;
    std::string run;
    std::string output;
    bool help = false;
    bool version = false;
};

void declare(CLI::App& app, Options& options, Words& words)
{
    app.set_help_flag();
    app.require_subcommand(0, 1);
    app.fallthrough();
    app.add_subcommand("info");
    app.add_subcommand("check");
    app.add_subcommand("update");
    app.add_subcommand("printers");
    app.add_subcommand("doctor");
    app.add_subcommand("report");
    app.add_subcommand("history")->add_option("run", words.run);
    app.add_option("-a,--address", words.addresses)->allow_extra_args(false);
    app.add_option("--printer", words.printers)->allow_extra_args(false);
    app.add_option("--uri", words.uris)->allow_extra_args(false);
    app.add_option("--from", words.from);
    app.add_option("--results", words.results);
    app.add_option("--jobs", words.jobs);
    app.add_option("--canary", words.canary);
    app.add_option("--max-failures", words.maxFailures);
    app.add_option("--deadline-each", words.deadlineEach);
    app.add_flag("--all", options.all);
    app.add_option("-p,--package", words.package);
    app.add_option("--port", words.port);
    app.add_option("--only", options.only)->allow_extra_args(false);
    app.add_flag("--skip-same", options.skipSame);
    app.add_option("--trace", words.trace);
    app.add_option("-o,--output", words.output);
    app.add_option("--sha256", words.sha256);
    app.add_option("--key", words.key);
    app.add_option("--deadline", words.deadline);
    app.add_option("--stall-limit", words.stallLimit);
    app.add_option("--lock-timeout", words.lockTimeout);
    app.add_option("--verify", words.verify);
    app.add_flag("-y,--yes", options.yes);
    app.add_flag("--json", options.json);
    app.add_flag("-q,--quiet", options.quiet);
    app.add_flag("-v,--verbose", options.verbose);
    app.add_flag("--no-color", options.noColour);
    app.add_flag("-h,--help", words.help);
    app.add_flag("--version", words.version);
}

Command commandOf(const CLI::App& app, const Words& words)
{
    if (words.help)
        return Command::help;
    if (words.version)
        return Command::version;
    for (const auto command : kCommands) {
        if (app.got_subcommand(commandName(command)))
            return command;
    }
    return Command::none;
}

bool asksAPrinter(Command command)
{
    return command == Command::check || command == Command::update;
}

// Those that may be about a printer, but need none.
bool looksAround(Command command)
{
    return command == Command::doctor || command == Command::report;
}

// The error in the choice of the printer, or empty.
std::string targetError(const Options& options, const CLI::App& app)
{
    const auto& fleet = options.fleet;
    const auto given = fleet.printers.size();
    const auto command = "'" + std::string(commandName(options.command)) + "'";
    const bool mayName = asksAPrinter(options.command) || looksAround(options.command);
    if (!mayName && given != 0)
        return command + " is about no single printer: leave --address, --printer and --uri out.";
    if (asksAPrinter(options.command) && given == 0 && !fleet.from && !options.all)
        return command
            + " needs to know the printer: add --printer NAME, --address A or --uri "
              "PORT. 'printers' shows which there are.";
    if (looksAround(options.command) && given > 1)
        return "Only one of --address, --printer and --uri can name the printer.";
    if (app.count("--trace") != 0 && isFleetCall(options))
        return "--trace is for a call with one printer.";
    for (const auto& word : fleet.printers) {
        if (auto error = errorOf(word); !error.empty())
            return error;
    }
    return {};
}

std::string belongsError(const char* option, const char* command)
{
    return std::string(option) + " belongs to " + command + " only.";
}

// An option that the command has no use for.
std::string strayError(const Options& options, const CLI::App& app)
{
    const auto command = options.command;
    if (options.yes && command != Command::update)
        return belongsError("--yes", "'update'");
    if (options.all && command != Command::printers && !asksAPrinter(command))
        return belongsError("--all", "'printers', 'check' and 'update'");
    if (options.output && command != Command::report)
        return belongsError("--output", "'report'");
    for (const auto* option : {"--stall-limit", "--lock-timeout", "--verify"}) {
        if (app.count(option) != 0 && command != Command::update)
            return belongsError(option, "'update'");
    }
    for (const auto* option : {"--port", "--trace", "--only", "--skip-same", "--from", "--results",
                               "--jobs", "--canary", "--max-failures", "--deadline-each"}) {
        const bool isPort = looksAround(command) && option == std::string_view("--port");
        if (app.count(option) != 0 && !asksAPrinter(command) && !isPort)
            return belongsError(option, "'check' and 'update'");
    }
    return {};
}

std::string limitError(const char* option, const std::string& text)
{
    return "'" + plainText(text) + "' is not a time limit: give " + option
        + " a positive number of seconds.";
}

std::string countError(const char* option, const std::string& text, int highest)
{
    return "'" + plainText(text) + "' is no number of printers: give " + option
        + " a number from 1 to " + std::to_string(highest) + ".";
}

std::string numberError(const Options& options, const CLI::App& app, const Words& words)
{
    if (app.count("--deadline") != 0 && !options.deadline.has_value())
        return limitError("--deadline", words.deadline);
    if (app.count("--stall-limit") != 0 && !options.stallLimit.has_value())
        return limitError("--stall-limit", words.stallLimit);
    if (app.count("--lock-timeout") != 0 && !options.lockTimeout.has_value())
        return limitError("--lock-timeout", words.lockTimeout);
    if (app.count("--verify") != 0 && !options.verify.has_value())
        return limitError("--verify", words.verify);
    if (app.count("--deadline-each") != 0 && !options.fleet.deadlineEach.has_value())
        return limitError("--deadline-each", words.deadlineEach);
    if (app.count("--port") != 0 && !options.port.has_value())
        return "'" + plainText(words.port) + "' is not a port: give --port a number from 1 to "
            + std::to_string(kHighestPort) + ".";
    if (app.count("--jobs") != 0 && !parseNumber(words.jobs, FleetOptions::kMostJobs))
        return countError("--jobs", words.jobs, FleetOptions::kMostJobs);
    if (app.count("--canary") != 0 && !options.fleet.canary)
        return countError("--canary", words.canary, FleetOptions::kMostPrinters);
    if (app.count("--max-failures") != 0 && !options.fleet.maxFailures)
        return countError("--max-failures", words.maxFailures, FleetOptions::kMostPrinters);
    if (!words.run.empty() && !options.run.has_value())
        return "'" + plainText(words.run)
            + "' is not the number of a run: 'history' shows them, from 1 on.";
    return {};
}

// Says what is wrong with the demands on the package; empty if nothing is.
std::string trustError(const Options& options)
{
    const bool opensPackage = options.command == Command::info || asksAPrinter(options.command);
    if (!opensPackage && (options.sha256 || (options.key && !looksAround(options.command))))
        return "--sha256 and --key belong to 'info', 'check' and 'update', --key also to 'doctor' "
               "and 'report'.";
    if (options.sha256 && !Sha256::fromHex(*options.sha256))
        return "'" + plainText(*options.sha256)
            + "' is not a SHA-256: give --sha256 the 64 hexadecimal digits that sha256sum prints.";
    if (options.key && options.key->empty())
        return "--key needs a key: give it a file made by minisign, or the key itself.";
    return {};
}

std::string usageErrorOf(const Options& options, const CLI::App& app, const Words& words)
{
    if (options.command == Command::help || options.command == Command::version)
        return {};
    if (options.command == Command::none)
        return kWhatToDo;
    for (auto& error : {targetError(options, app), strayError(options, app), trustError(options),
                        numberError(options, app, words)}) {
        if (!error.empty())
            return error;
    }
    for (const auto* option : {"--trace", "--output", "--from", "--results"}) {
        if (app.count(option) != 0 && app.get_option(option)->as<std::string>().empty())
            return std::string(option) + " needs the name of a file.";
    }
    return {};
}

// The printers in the order of the line, whichever option names them.
std::vector<PrinterWord> printersOf(const CLI::App& app, const Words& words)
{
    using Kind = PrinterWord::Kind;
    struct Named {
        Kind kind;
        const CLI::Option* option;
        const std::vector<std::string>& texts;
        std::size_t next = 0;
    };
    std::array<Named, 3> named = {{{Kind::address, app.get_option("--address"), words.addresses},
                                   {Kind::queue, app.get_option("--printer"), words.printers},
                                   {Kind::uri, app.get_option("--uri"), words.uris}}};
    std::vector<PrinterWord> found;
    for (const auto* option : app.parse_order()) {
        for (auto& each : named) {
            if (each.option == option && each.next < each.texts.size())
                found.push_back({each.kind, each.texts[each.next++]});
        }
    }
    return found;
}

void takePrinters(Options& options, const CLI::App& app, const Words& words)
{
    auto& fleet = options.fleet;
    fleet.printers = printersOf(app, words);
    if (app.count("--from") != 0)
        fleet.from = words.from;
    if (app.count("--results") != 0)
        fleet.results = words.results;
    fleet.jobs = parseNumber(words.jobs, FleetOptions::kMostJobs).value_or(fleet.jobs);
    fleet.canary = parseNumber(words.canary, FleetOptions::kMostPrinters);
    fleet.maxFailures = parseNumber(words.maxFailures, FleetOptions::kMostPrinters);
    fleet.deadlineEach = parseSeconds(words.deadlineEach);
    if (fleet.printers.size() != 1 || isFleetCall(options))
        return;
    const auto& [kind, text] = fleet.printers.front();
    (kind == PrinterWord::Kind::queue     ? options.printer
         : kind == PrinterWord::Kind::uri ? options.uri
                                          : options.address) = text;
}

void take(Options& options, const CLI::App& app, const Words& words)
{
    options.command = commandOf(app, words);
    takePrinters(options, app, words);
    if (app.count("--package") != 0)
        options.package = words.package;
    if (app.count("--trace") != 0)
        options.traceFile = words.trace;
    options.port = parseNumber(words.port, kHighestPort);
    options.run = parseNumber(words.run, kHighestRun);
    if (app.count("--output") != 0)
        options.output = words.output;
    if (app.count("--sha256") != 0)
        options.sha256 = words.sha256;
    if (app.count("--key") != 0)
        options.key = words.key;
    options.deadline = parseSeconds(words.deadline);
    options.stallLimit = parseSeconds(words.stallLimit);
    // Not to wait at all is the default, and may be said.
    options.lockTimeout = words.lockTimeout == "0" ? 0 : parseSeconds(words.lockTimeout);
    options.verify = parseSeconds(words.verify);
    options.usageError = usageErrorOf(options, app, words);
}

Options parsedOptions(int argc, const char* const* argv, const LineWords& line)
{
    Options options;
    Words words;
    try {
        CLI::App app;
        declare(app, options, words);
        app.parse(argc, argv);
        take(options, app, words);
        options.fleet.passedOn = withoutWords(argc, argv, kNotPassedOn);
    } catch (const CLI::ParseError& error) {
        options.usageError = plainText(error.what()) + ".";
        const auto suggestion = suggestionFor(line.unknown);
        if (!line.unknown.empty() && !suggestion.empty())
            options.usageError += " " + suggestion;
    }
    return options;
}

} // namespace

Options parseOptions(int argc, const char* const* argv)
{
    Options options;
    if (argc < 1) { // a program may be started without even its name
        options.usageError = kWhatToDo;
        return options;
    }
    const auto line = lineWords(argc, argv);
    if (line.wantsHelp)
        options.command = Command::help;
    else if (!line.emptyOption.empty())
        options.usageError = line.emptyOption + "= has no value: write one right after the sign.";
    else
        options = parsedOptions(argc, argv, line);
    if (!options.usageError.empty() && options.command == Command::none)
        options.command = line.command;
    options.json = options.json || line.wantsJson;
    return options;
}

bool isFleetCall(const Options& options)
{
    const auto& fleet = options.fleet;
    return asksAPrinter(options.command)
        && (fleet.printers.size() > 1 || fleet.from || fleet.results || options.all);
}
