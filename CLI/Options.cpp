#include "CLI/Options.h"

#include "UI/Printers/PrinterCheck.h"
#include "UI/Text/PlainText.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <netinet/in.h>

namespace {

constexpr double kLongestDeadline = 366.0 * 24 * 3600; // a number that no clock overflows on
constexpr const char* kWhatToDo = "Say what to do: info, printers, check or update.";

struct Words {
    std::string address;
    std::string printer;
    std::string uri;
    std::string package;
    std::string deadline;
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
    app.add_option("-a,--address", words.address);
    app.add_option("--printer", words.printer);
    app.add_option("--uri", words.uri);
    app.add_flag("--all", options.all);
    app.add_option("-p,--package", words.package);
    app.add_option("--deadline", words.deadline);
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
    for (const auto command : {Command::info, Command::printers, Command::check, Command::update}) {
        if (app.got_subcommand(commandName(command)))
            return command;
    }
    return Command::none;
}

bool asksAPrinter(Command command)
{
    return command == Command::check || command == Command::update;
}

std::string addressError(const std::string& address)
{
    if (isPrinterAddress(address))
        return {};
    return "'" + plainText(address)
        + "' is not the IPv4 address of a printer: give four numbers from 0 to 255 with points "
          "between them, such as 192.0.2.7.";
}

// What is wrong with the way in which the printer is named.
std::string targetError(const Options& options, const CLI::App& app)
{
    const auto given = app.count("--address") + app.count("--printer") + app.count("--uri");
    const auto command = "'" + std::string(commandName(options.command)) + "'";
    if (!asksAPrinter(options.command) && given != 0)
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

std::string flagError(const Options& options)
{
    if (options.yes && options.command != Command::update)
        return "--yes belongs to 'update' only.";
    if (options.all && options.command != Command::printers)
        return "--all belongs to 'printers' only.";
    return {};
}

std::string usageErrorOf(const Options& options, const CLI::App& app, const Words& words)
{
    if (options.command == Command::help || options.command == Command::version)
        return {};
    if (options.command == Command::none)
        return kWhatToDo;
    for (auto& error : {targetError(options, app), flagError(options)}) {
        if (!error.empty())
            return error;
    }
    if (app.count("--deadline") != 0 && !options.deadline.has_value())
        return "'" + plainText(words.deadline)
            + "' is not a time limit: give --deadline a positive number of seconds.";
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
        options.packageFolder = words.package;
    options.deadline = parseSeconds(words.deadline);
    options.usageError = usageErrorOf(options, app, words);
}

bool hasWord(int argc, const char* const* argv, const char* word)
{
    return argc > 1 && std::any_of(argv + 1, argv + argc, [word](const char* each) {
               return std::strcmp(each, word) == 0;
           });
}

} // namespace

const char* commandName(Command command)
{
    constexpr std::array<const char*, 7> kNames = {"none", "info",    "check",   "update",
                                                   "help", "version", "printers"};
    return kNames.at(static_cast<std::size_t>(command));
}

Options parseOptions(int argc, const char* const* argv)
{
    Options options;
    Words words;
    if (argc < 1) { // a program may be started with nothing at all
        options.usageError = kWhatToDo;
        return options;
    }
    try {
        CLI::App app;
        declare(app, options, words);
        app.parse(argc, argv);
        take(options, app, words);
    } catch (const CLI::ParseError& error) {
        options.usageError = plainText(error.what()) + ".";
    }
    options.json = options.json || hasWord(argc, argv, "--json");
    return options;
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
