#include "CLI/Options.h"

#include "CLI/LineWords.h"
#include "UI/Printers/PrinterCheck.h"
#include "UI/Text/PlainText.h"
#include "VYM/Sha256.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cmath>
#include <netinet/in.h>

namespace {

constexpr double kLongestDeadline = 366.0 * 24 * 3600; // small enough for every clock
constexpr int kHighestPort = 65535;
constexpr int kHighestRun = 1000000; // of the history: more than any folder of logs holds
constexpr std::size_t kLongestHost = 253; // as the domain name system allows
constexpr const char* kWhatToDo =
    "Say what to do: info, printers, check, update, history, doctor or report.";

struct Words {
    std::string address;
    std::string printer;
    std::string uri;
    std::string package;
    std::string sha256;
    std::string key;
    std::string deadline;
    std::string stallLimit;
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
    app.add_option("-a,--address", words.address);
    app.add_option("--printer", words.printer);
    app.add_option("--uri", words.uri);
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

std::string addressError(const std::string& address)
{
    if (isPrinterAddress(address) || isHostName(address))
        return {};
    return "'" + plainText(address)
        + "' is not the address of a printer: give its name, or its IPv4 address as four numbers "
          "from 0 to 255 with points between them, such as 192.0.2.7.";
}

// The error in the choice of the printer, or empty.
std::string targetError(const Options& options, const CLI::App& app)
{
    const auto given = app.count("--address") + app.count("--printer") + app.count("--uri");
    const auto command = "'" + std::string(commandName(options.command)) + "'";
    const bool mayName = asksAPrinter(options.command) || looksAround(options.command);
    if (!mayName && given != 0)
        return command + " is about no single printer: leave --address, --printer and --uri out.";
    if (asksAPrinter(options.command) && given == 0)
        return command
            + " needs to know the printer: add --printer NAME, --address A or --uri "
              "PORT. 'printers' shows which there are.";
    if (given > 1)
        return "Only one of --address, --printer and --uri can name the printer.";
    if (options.address)
        return addressError(*options.address);
    return options.uri ? portStringError(*options.uri) : "";
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
    if (options.all && command != Command::printers)
        return belongsError("--all", "'printers'");
    if (options.output && command != Command::report)
        return belongsError("--output", "'report'");
    for (const auto* option : {"--stall-limit", "--verify"}) {
        if (app.count(option) != 0 && command != Command::update)
            return belongsError(option, "'update'");
    }
    for (const auto* option : {"--port", "--trace", "--only", "--skip-same"}) {
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

std::string numberError(const Options& options, const CLI::App& app, const Words& words)
{
    if (app.count("--deadline") != 0 && !options.deadline.has_value())
        return limitError("--deadline", words.deadline);
    if (app.count("--stall-limit") != 0 && !options.stallLimit.has_value())
        return limitError("--stall-limit", words.stallLimit);
    if (app.count("--verify") != 0 && !options.verify.has_value())
        return limitError("--verify", words.verify);
    if (app.count("--port") != 0 && !options.port.has_value())
        return "'" + plainText(words.port) + "' is not a port: give --port a number from 1 to "
            + std::to_string(kHighestPort) + ".";
    if (!words.run.empty() && !options.run.has_value())
        return "'" + plainText(words.run)
            + "' is not the number of a run: 'history' shows them, from 1 on.";
    return {};
}

// What is wrong with the demands on the package.
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
    if (app.count("--trace") != 0 && words.trace.empty())
        return "--trace needs the name of a file.";
    if (options.output && options.output->empty())
        return "--output needs the name of a file.";
    return {};
}

void take(Options& options, const CLI::App& app, const Words& words)
{
    options.command = commandOf(app, words);
    if (app.count("--address") != 0)
        options.address = words.address;
    if (app.count("--printer") != 0)
        options.printer = words.printer;
    if (app.count("--uri") != 0)
        options.uri = words.uri;
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
    } catch (const CLI::ParseError& error) {
        options.usageError = plainText(error.what()) + ".";
        const auto suggestion = suggestionFor(line.unknown);
        if (!line.unknown.empty() && !suggestion.empty())
            options.usageError += " " + suggestion;
    }
    return options;
}

} // namespace

const char* commandName(Command command)
{
    constexpr std::array kNames = {"none",    "info",     "check",   "update", "help",
                                   "version", "printers", "history", "doctor", "report"};
    return kNames.at(static_cast<std::size_t>(command));
}

Command commandNamed(std::string_view word)
{
    const auto* found = std::find_if(kCommands.begin(), kCommands.end(),
                                     [word](auto each) { return commandName(each) == word; });
    return found != kCommands.end() ? *found : Command::none;
}

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

bool isHostName(const std::string& text)
{
    static constexpr std::string_view kLetters =
        "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
    static constexpr std::string_view kOthers = "0123456789-_.";
    const auto isAllowed = [](char c) {
        return kLetters.find(c) != std::string_view::npos
            || kOthers.find(c) != std::string_view::npos;
    };
    return !text.empty() && text.size() <= kLongestHost
        && text.find_first_of(kLetters) != std::string::npos
        && std::all_of(text.begin(), text.end(), isAllowed) && text.front() != '-'
        && text.front() != '.' && text.find("..") == std::string::npos
        && !text.starts_with("0x"); // a number in another dress
}

bool isPrinterAddress(const std::string& text)
{
    in_addr address{};
    return inet_pton(AF_INET, text.c_str(), &address) == 1 && text.find('\0') == std::string::npos
        && address.s_addr != INADDR_ANY && address.s_addr != INADDR_BROADCAST;
}

std::string portStringError(const std::string& text)
{
    const auto quoted = "'" + plainText(text) + "'";
    const bool isUsb = text.starts_with("usb://");
    if (!isUsb && !text.starts_with("lpd://") && !text.starts_with("net:"))
        return quoted + " is no port string of a printer: it begins with usb://, lpd:// or net:.";
    if (isUsb)
        return serialKey(text) ? ""
                               : quoted
                + " has no serial=, which tells one USB printer from "
                  "another.";
    const auto host = std::string_view(text).substr(text.find(':') + 1);
    if (host.find_first_not_of('/') == std::string_view::npos
        || (text.starts_with("lpd://") && host.substr(2).starts_with('/')))
        return quoted + " names no host: write it right after lpd:// or net:.";
    if (isUsbPort(text))
        return quoted
            + " would be taken for a USB printer, because it has \"usb\" in it: give "
              "the printer's --address.";
    return {};
}

std::optional<double> parseSeconds(const std::string& text)
{
    double seconds = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, seconds, std::chars_format::fixed);
    if (error != std::errc() || last != end || !(seconds > 0) || seconds > kLongestDeadline)
        return std::nullopt;
    return seconds;
}

std::optional<int> parseNumber(const std::string& text, int highest)
{
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || last != end || number < 1 || number > highest
        || text.starts_with('+'))
        return std::nullopt;
    return number;
}
