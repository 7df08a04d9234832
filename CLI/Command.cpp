// SPDX-License-Identifier: MIT
#include "CLI/Command.h"

#include <algorithm>

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
