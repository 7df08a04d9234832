// SPDX-License-Identifier: MIT
// The update package as values: all facts that are shown or used for decisions before there is a
// connection. All texts are safe to show.
//
// Opening takes time in proportion to the file's size, whatever its content, and checks every
// fraction of a second whether it should stop.
//
// Owns:    its texts, by value.
// Threads: opened on one thread, once in a process, before any worker starts; read by any.
#pragma once
#include "UI/Package/PackageReason.h"
#include "UI/Package/PackageTrust.h"
#include "UI/vymParseController.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct PackagedFirmware {
    std::uint32_t number; // from 1, its place in the package
    std::string name;
    std::string version;
    std::string displayName;
    std::string displayVersion;
    std::string nameInPrinter; // the name in the printer and in the status record
    std::string compatibleVersion; // may be empty
    std::string file;
    std::optional<unsigned long> bytes; // empty if the image is missing or incomplete
};

struct PackageFacts {
    std::string folder;
    std::string model; // the printer must be this model; empty if the package has none
    std::string product;
    std::vector<std::string> modelNames;
    std::vector<std::string> driverNames;
    std::vector<std::string> ports;
    std::vector<std::string> deviceIdModels;
    int portNumber;
    int enterSeconds;
    int exitSeconds;
    int updateSeconds;
    yesno_type needsEnterOperation;
    yesno_type needsExitOperation;
    yesno_type versionRule;
    yesno_type specialCommands;
    std::optional<long> lowestSystem; // in BCD
    std::optional<long> highestSystem;
    std::vector<PackagedFirmware> firmware;
    std::string file = {}; // of the package, with its folder
    std::optional<PackageSignature> signature = {}; // where it was checked, against a trusted key
    std::string sha256 = {}; // of the container, where its bytes were checked or that was wanted
};

// Bytes of one row of the description: far more than a printer family needs.
constexpr std::size_t kLongestRow = 65536;

struct PackageRequest {
    // The package's folder, or its file; empty: it is looked for where programs keep theirs.
    std::optional<std::string> path;
    TrustRequest trust; // which packages are trusted
    std::function<bool()> shouldStop; // whether the user wants to stop; may be empty
};

// A package that is not trusted is closed for the whole process: nothing of it can be sent or
// shown.
enum class PackageState : std::uint8_t { usable, unusable, notTrusted, stopped };

struct OpenedPackage {
    std::optional<PackageFacts> package; // if it is usable
    std::string problem; // otherwise why it is not, and what to do
    PackageState state = PackageState::usable;
    PackageReason reason = {}; // the problem as a value
};

OpenedPackage openPackage(const PackageRequest& request);
OpenedPackage openPackage(const std::optional<std::string>& path);
// Why a printer cannot be updated from this package, and what to do; empty if it can.
std::string unfitForUpdate(const PackageFacts& package);
