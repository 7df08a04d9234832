// SPDX-License-Identifier: MIT
#include "CLI/FirmwareChoice.h"

#include "UI/Text/PlainText.h"
#include "VYM/AsciiCase.h"

namespace {

std::string namesOf(const PackageFacts& package)
{
    std::string names;
    for (const auto& firmware : package.firmware)
        names += (names.empty() ? "" : ", ") + firmware.name;
    return names.empty() ? "The package has no firmware." : "The package has " + names + ".";
}

} // namespace

FirmwareChoice chooseFirmware(const PackageFacts& package, const Options& options)
{
    FirmwareChoice choice;
    choice.entries.skipSame = options.skipSame;
    for (const auto& given : options.only) {
        const auto name = plainText(given); // as the facts are
        const auto before = choice.entries.only.size();
        for (const auto& firmware : package.firmware) {
            if (ascii::equalNoCase(firmware.name, name)
                || ascii::equalNoCase(firmware.displayName, name))
                choice.entries.only.push_back(firmware.number);
        }
        if (choice.entries.only.size() == before && choice.problem.empty())
            choice.problem = "No firmware of the package is called '" + name + "', as --only says. "
                + namesOf(package);
    }
    return choice;
}
