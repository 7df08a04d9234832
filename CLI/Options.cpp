#include "CLI/Options.h"

#include "UI/PlainText.h"

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

struct Words {
    std::string address;
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
    app.add_option("-a,--address", words.address);
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
    for (const auto command : {Command::info, Command::check, Command::update}) {
        if (app.got_subcommand(commandName(command)))
            return command;
    }
    return Command::none;
}

std::string addressError(const Options& options, bool given)
{
    if (options.command == Command::info)
        return given ? "'info' asks no printer: leave --address out." : "";
    if (!given)
        return std::string("'") + commandName(options.command)
            + "' needs the printer's address: add --address A.";
    if (isPrinterAddress(*options.address))
        return {};
    return "'" + plainText(*options.address)
        + "' is not the IPv4 address of a printer: give four numbers from 0 to 255 with points "
          "between them, such as 192.0.2.7.";
}

std::string usageErrorOf(const Options& options, const CLI::App& app, const Words& words)
{
    if (options.command == Command::help || options.command == Command::version)
        return {};
    if (options.command == Command::none)
        return "Say what to do: info, check or update.";
    if (auto error = addressError(options, app.count("--address") != 0); !error.empty())
        return error;
    if (options.yes && options.command != Command::update)
        return "--yes belongs to 'update' only.";
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
    constexpr std::array<const char*, 6> kNames = {"none",   "info", "check",
                                                   "update", "help", "version"};
    return kNames.at(static_cast<std::size_t>(command));
}

Options parseOptions(int argc, const char* const* argv)
{
    Options options;
    Words words;
    if (argc < 1) { // a program may be started with nothing at all
        options.usageError = "Say what to do: info, check or update.";
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

std::optional<double> parseSeconds(const std::string& text)
{
    double seconds = 0;
    const char* end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, seconds, std::chars_format::fixed);
    if (error != std::errc() || last != end || !(seconds > 0) || seconds > kLongestDeadline)
        return std::nullopt;
    return seconds;
}
