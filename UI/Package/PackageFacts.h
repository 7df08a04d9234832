// The update package as values: everything that is shown of it or decided from it before a
// connection is made. All of its texts are fit to be shown.
//
// Opening takes a time in proportion to the size of the file, whatever the file holds, and checks
// every fraction of a second whether it should stop.
//
// Owns:    its texts, by value.
// Threads: opened on one thread, once in a process, before any worker starts; read by any.
#pragma once
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
    std::string nameInPrinter; // what the printer calls it, and the status record
    std::string compatibleVersion; // may be empty
    std::string file;
    std::optional<unsigned long> bytes; // empty where the image is not wholly in the package
};

struct PackageFacts {
    std::string folder;
    std::string model; // what a printer has to be; empty when the package does not say
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
};

// Bytes of one row of the description: far above what a printer family needs.
constexpr std::size_t kLongestRow = 65536;

struct PackageRequest {
    // The package's folder, or its file; empty: it is looked for where programs keep theirs.
    std::optional<std::string> path;
    TrustRequest trust; // which packages are trusted
    std::function<bool()> shouldStop; // whether the user has had enough; may be empty
};

// A package that is not trusted is closed for the whole process: nothing of it can be sent or
// shown.
enum class PackageState : std::uint8_t { usable, unusable, notTrusted, stopped };

struct OpenedPackage {
    std::optional<PackageFacts> package; // where it is usable
    std::string problem; // else why it is not, and what to do
    PackageState state = PackageState::usable;
};

OpenedPackage openPackage(const PackageRequest& request);
OpenedPackage openPackage(const std::optional<std::string>& path);
// Why a printer cannot be updated from this package, and what to do; empty when it can be.
std::string unfitForUpdate(const PackageFacts& package);
