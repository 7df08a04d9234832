// SPDX-License-Identifier: MIT
// Why a package cannot be used, as a value: the command line says it in English, the window in the
// user's language.
//
// Owns:    its texts, by value; all of them are safe to show.
// Threads: any.
#pragma once
#include <cstdint>
#include <string>
#include <vector>

enum class PackageFault : std::uint8_t {
    none,
    // The file.
    nameTooLong,
    notFound, // in none of the places where programs look
    noFolder,
    notInFolder,
    notAFile,
    notReadable,
    // Its contents.
    notAPackage,
    noDescription,
    largeDescription,
    noMemory,
    longRow,
    noFirmware,
    manyFirmware,
    badPort,
    // Whether it is trusted.
    readError,
    keysUnreadable,
    noSignatureCheck,
    notSigned,
    signatureUnreadable,
    signatureOld,
    signatureForeign,
    otherSum, // than the command line expects
    // The user.
    stopped,
};

struct KeyName {
    std::string name;
    bool isReadable = true;
};

struct PackageReason {
    PackageFault fault = PackageFault::none;
    std::string place = {}; // the file or folder that is meant; for notFound, all of them
    std::uint32_t limit = 0; // that the package exceeds; a description's in MiB
    std::string sum = {}; // of the package, in hexadecimal
    std::vector<KeyName> keys = {}; // the trusted ones
};

// The reason and what to do, for the command line and for logs; empty for none.
std::string englishWords(const PackageReason& reason);
// The sentence and the advice to check the package, whose file is safe to show.
std::string withCheckAdvice(const std::string& why, const std::string& shownFile);
