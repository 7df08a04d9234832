// SPDX-License-Identifier: MIT
#include "CLI/Commands.h"

Outcome runInfo(const PackageFacts& package)
{
    Outcome outcome;
    outcome.command = Command::info;
    outcome.name = "package-info";
    outcome.package = package;
    return outcome;
}
