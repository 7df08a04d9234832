// SPDX-License-Identifier: MIT
// The commands of the command line, and their words.
//
// Threads: any. Pure functions.
#pragma once
#include <array>
#include <cstdint>
#include <string_view>

enum class Command : std::uint8_t {
    none,
    info,
    check,
    update,
    help,
    version,
    printers,
    history,
    doctor,
    report,
};
// Those that are words of the command line, in the order of the help page.
inline constexpr std::array kCommands = {Command::info,   Command::printers, Command::check,
                                         Command::update, Command::history,  Command::doctor,
                                         Command::report};
const char* commandName(Command command);
Command commandNamed(std::string_view word); // none for any other word
