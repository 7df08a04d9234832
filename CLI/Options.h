// What the user asked for, read from the command line and checked as far as the words alone allow.
//
// Owns:    its texts, by value.
// Threads: any. Opens no package and asks nobody anything.
#pragma once
#include <cstdint>
#include <optional>
#include <string>

enum class Command : std::uint8_t { none, info, check, update, help, version, printers };
const char* commandName(Command command);

struct Options {
    Command command = Command::none;
    // Which printer: at most one of these three, exactly one for a command that asks a printer.
    std::optional<std::string> address;
    std::optional<std::string> printer; // a queue's identifier or name
    std::optional<std::string> uri; // a port string
    std::optional<std::string> packageFolder;
    std::optional<double> deadline; // seconds
    bool yes = false;
    bool all = false; // also the printers that cannot be updated
    bool json = false; // set also where the rest of the line is wrong
    bool quiet = false;
    bool verbose = false;
    bool noColour = false;
    std::string usageError; // empty when the line is right
};

Options parseOptions(int argc, const char* const* argv);

// Four decimal numbers from 0 to 255 without leading zeros, and an address that one printer can
// have.
bool isPrinterAddress(const std::string& text);
// Why a text is no port string that connections take; empty for one that they do.
std::string portStringError(const std::string& text);
// A positive number of seconds, up to a year.
std::optional<double> parseSeconds(const std::string& text);
