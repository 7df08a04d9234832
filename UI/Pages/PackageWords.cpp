// SPDX-License-Identifier: MIT
#include "UI/Pages/PackageWords.h"

#include "UI/Pages/Words.h"
#include "UI/Text/TextKeys.h"
#include "UI/Text/TextList.h"

#include <algorithm>

namespace {

enum class Advice : std::uint8_t { none, getAgain, trustedKeys };

struct Row {
    PackageFault fault;
    Advice advice;
    const char* key; // formatted with the limit, if the reason has one, otherwise with the place
};

constexpr Row kRows[] = {
    {PackageFault::nameTooLong, Advice::none, textkey::kPackageNameTooLong},
    // Also what the first page shows in its place.
    {PackageFault::notFound, Advice::none, textkey::kStartNoPackageTitle},
    {PackageFault::noFolder, Advice::none, textkey::kPackageNoFolder},
    {PackageFault::notInFolder, Advice::none, textkey::kPackageNotInFolder},
    {PackageFault::notAFile, Advice::none, textkey::kPackageNotAFile},
    {PackageFault::notReadable, Advice::none, textkey::kPackageNotReadable},
    {PackageFault::notAPackage, Advice::getAgain, textkey::kPackageDamaged},
    {PackageFault::noDescription, Advice::getAgain, textkey::kPackageNoDescription},
    {PackageFault::largeDescription, Advice::getAgain, textkey::kPackageLargeDescription},
    {PackageFault::noMemory, Advice::none, textkey::kPackageNoMemory},
    {PackageFault::longRow, Advice::getAgain, textkey::kPackageLongRow},
    {PackageFault::noFirmware, Advice::getAgain, textkey::kPackageNoFirmware},
    {PackageFault::manyFirmware, Advice::getAgain, textkey::kPackageManyFirmware},
    {PackageFault::badPort, Advice::getAgain, textkey::kPackageBadPort},
    {PackageFault::readError, Advice::getAgain, textkey::kPackageReadError},
    {PackageFault::keysUnreadable, Advice::none, textkey::kPackageKeysUnreadable},
    {PackageFault::noSignatureCheck, Advice::none, textkey::kPackageNoSignatureCheck},
    {PackageFault::notSigned, Advice::trustedKeys, textkey::kPackageNotSigned},
    {PackageFault::signatureUnreadable, Advice::trustedKeys, textkey::kPackageSignatureUnreadable},
    {PackageFault::signatureOld, Advice::trustedKeys, textkey::kPackageSignatureOld},
    {PackageFault::signatureForeign, Advice::trustedKeys, textkey::kPackageSignatureForeign},
    // The window never stops the reading, and has no option for a sum.
    {PackageFault::otherSum, Advice::none, textkey::kPackageReadError},
    {PackageFault::stopped, Advice::none, textkey::kPackageReadError},
};

std::string namesOf(const std::vector<KeyName>& keys)
{
    std::vector<std::string> names;
    names.reserve(keys.size());
    for (const auto& key : keys)
        names.push_back(key.isReadable ? key.name
                                       : words::filled(textkey::kPackageKeyUnreadable, key.name));
    return joined(names);
}

std::string adviceOf(Advice advice, const PackageReason& reason)
{
    switch (advice) {
    case Advice::none:
        return {};
    case Advice::getAgain:
        return '\n' + words::plain(textkey::kPackageGetAgain);
    case Advice::trustedKeys:
        return '\n' + words::filled(textkey::kPackageTrustedKeys, namesOf(reason.keys));
    }
    return {};
}

} // namespace

std::string packageWords(const PackageReason& reason)
{
    const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                   [&](const auto& each) { return each.fault == reason.fault; });
    if (row == std::end(kRows))
        return {};
    const auto argument = reason.limit != 0 ? std::to_string(reason.limit) : reason.place;
    return words::filled(row->key, argument) + adviceOf(row->advice, reason);
}
