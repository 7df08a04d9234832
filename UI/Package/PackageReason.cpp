// SPDX-License-Identifier: MIT
#include "UI/Package/PackageReason.h"

#include "UI/Package/PackagePlace.h"
#include "UI/Text/TextList.h"

namespace {

std::string quoted(const std::string& text)
{
    return "'" + text + "'";
}

// How to name another package.
std::string withOption(const std::string& why)
{
    return why + " Give the folder that holds " + kPackageName
        + " with --package FOLDER, or the file itself.";
}

std::string namesOf(const std::vector<KeyName>& keys)
{
    std::vector<std::string> names;
    names.reserve(keys.size());
    for (const auto& key : keys)
        names.push_back(key.name + (key.isReadable ? "" : " (which is no key that can be read)"));
    return joined(names);
}

std::string wordsOfFile(const PackageReason& reason)
{
    switch (reason.fault) {
    case PackageFault::nameTooLong:
        return "The package's folder or file has too long a name. Give it a shorter one, "
               "or put the package into another folder.";
    case PackageFault::notFound:
        return withOption("No update package was found. This program looked for " + reason.place
                          + ".");
    case PackageFault::noFolder:
        return withOption("There is no folder " + quoted(reason.place) + " that can be read.");
    case PackageFault::notInFolder:
        return withOption("The folder " + quoted(reason.place) + " holds no " + kPackageName + ".");
    case PackageFault::notAFile:
        return withOption(quoted(reason.place) + " is not a file.");
    case PackageFault::notReadable:
        return quoted(reason.place) + " must not be read by you. Ask its owner for permission.";
    case PackageFault::noMemory:
        return "There is not enough memory to read the package. Close other programs, then try "
               "again.";
    case PackageFault::stopped:
        return "Stopped while the package was being read.";
    default:
        return {};
    }
}

std::string wordsOfContent(const PackageReason& reason)
{
    const auto limit = std::to_string(reason.limit);
    switch (reason.fault) {
    case PackageFault::notAPackage:
        return quoted(reason.place) + " is not an update package, or is damaged.";
    case PackageFault::noDescription:
        return "The package holds no description (VYMINFO.txt).";
    case PackageFault::largeDescription:
        return "The package's description is larger than " + limit + " MiB.";
    case PackageFault::longRow:
        return "The package's description has a row of more than " + limit + " bytes.";
    case PackageFault::noFirmware:
        return "The package's description lists no firmware.";
    case PackageFault::manyFirmware:
        return "The package lists more than " + limit + " firmware.";
    case PackageFault::badPort:
        return "The package's port number is not one from 1 to 65535.";
    default:
        return {};
    }
}

std::string wordsOfSignature(const PackageReason& reason)
{
    const auto signature = "The package's signature " + quoted(reason.place);
    switch (reason.fault) {
    case PackageFault::notSigned:
        return "The package is not signed: there is no " + quoted(reason.place) + ".";
    case PackageFault::signatureUnreadable:
        return signature + " cannot be read.";
    case PackageFault::signatureOld:
        return signature + " has an old form, made with the option -l of minisign.";
    case PackageFault::signatureForeign:
        return signature + " is of no trusted key, or the package was changed after it was signed.";
    default:
        return {};
    }
}

std::string wordsOfTrust(const PackageReason& reason)
{
    switch (reason.fault) {
    case PackageFault::readError:
        return "The package could not be read to its end, or memory is short. Close other programs "
               "and try again, or get the package again.";
    case PackageFault::keysUnreadable:
        return "The trusted keys in " + quoted(reason.place)
            + " cannot be read. Ask the administrator of this computer.";
    case PackageFault::noSignatureCheck:
        return "This program cannot check signatures: it was built without libsodium. Ask the "
               "administrator of this computer.";
    case PackageFault::otherSum:
        return "The package is another one: its SHA-256 is " + reason.sum
            + ", not the expected one. Get the package again.";
    default:
        return {};
    }
}

} // namespace

std::string withCheckAdvice(const std::string& why, const std::string& shownFile)
{
    return why + " Run \"vympack check " + shownFile + "\" to see what is wrong with it.";
}

std::string englishWords(const PackageReason& reason)
{
    if (auto words = wordsOfFile(reason); !words.empty())
        return words;
    if (auto words = wordsOfContent(reason); !words.empty())
        return withCheckAdvice(words, reason.place);
    if (auto words = wordsOfSignature(reason); !words.empty())
        return words + " Only a package signed with a trusted key is used here: "
            + namesOf(reason.keys) + ". Get the package and its signature from its maker.";
    return wordsOfTrust(reason);
}
