// SPDX-License-Identifier: MIT
#include "Tools/vympack/CommandLine.h"

#include "Tools/vympack/BundleCommand.h"
#include "Tools/vympack/CheckCommand.h"
#include "Tools/vympack/DiffCommand.h"
#include "Tools/vympack/InitCommand.h"
#include "Tools/vympack/Interrupt.h"
#include "Tools/vympack/MakeCommand.h"
#include "Tools/vympack/RehearseCommand.h"
#include "Tools/vympack/SimulateCommand.h"

#include <CLI/CLI.hpp>
#include <functional>

namespace vympack {

namespace {

constexpr auto kFooter = R"(Examples:
  vympack init --model "Model 100" --firmware MAIN=AB010203:main.bin
  vympack make -o VYMBINDDATA VYMINFO.txt main.bin boot.bin
  vympack check VYMBINDDATA
  vympack simulate VYMBINDDATA --installed MAIN=AB010100
  vympack rehearse --quick VYMBINDDATA
  vympack diff OLD/VYMBINDDATA VYMBINDDATA
  vympack list --json VYMBINDDATA
  vympack extract VYMBINDDATA -d unpacked main.bin
  vympack bundle -o for-customers VYMBINDDATA

Limits: 1000 VERSION rows, 31 bytes for a file's name, 4 GiB for a package, no two files on the
same bytes.

Exit codes: 0 done, 1 defects or differences found or something refused, 64 wrong usage, 66 a file
cannot be read, 70 out of memory or another failure inside, 73 a result cannot be written, 130
interrupted. simulate ends as vymkit-cli check would with such a printer.)";

using Work = std::function<int(Streams)>;

// One command: its options fill an order, which lives until the command has run.
template <class Order>
std::pair<CLI::App*, std::shared_ptr<Order>> addCommand(CLI::App& app, const char* name,
                                                        const char* what, Work& work,
                                                        int (*run)(const Order&, Streams))
{
    auto order = std::make_shared<Order>();
    auto* command = app.add_subcommand(name, what);
    command->final_callback(
        [&work, order, run] { work = [order, run](Streams s) { return run(*order, s); }; });
    return {command, order};
}

void addMake(CLI::App& app, Work& work)
{
    const auto [make, order] = addCommand<MakeOrder>(
        app, "make", "Make a package out of files, if they pass all checks", work, makePackage);
    make->add_option("-o,--output", order->path, "The package to write; - for standard output")
        ->required();
    make->add_option("INPUT", order->inputs, "Files to put in, VYMINFO.txt among them")->required();
    make->add_flag("--force", order->force, "Replace the package if it exists");
    make->add_flag("--crlf", order->crlf, "End the description's rows in CR LF, as they have to");
    make->add_flag("--sort", order->sort, "Put the files in by name, whatever their order here");
    make->add_flag("--json", order->json, "Say what was written as JSON");
}

struct ReadOrder {
    std::string path;
    bool json = false;
};

int list(const ReadOrder& order, Streams streams)
{
    return listPackage(order.path, order.json, streams);
}

void addList(CLI::App& app, Work& work)
{
    const auto [command, order] =
        addCommand<ReadOrder>(app, "list", "List the files in a package", work, list);
    command->add_option("FILE", order->path, "The package")->required();
    command->add_flag("--json", order->json, "Write the result as JSON");
}

void addCheck(CLI::App& app, Work& work)
{
    const auto [check, order] = addCommand<CheckOrder>(
        app, "check", "Name everything that is wrong in a package", work, checkPackage);
    check
        ->add_option("FILE", order->path,
                     "The package, a description alone, or a folder with one of them")
        ->required();
    check->add_flag("--json", order->json, "Write the result as JSON");
    check->add_flag("--strict", order->strict, "Warnings count as errors");
}

struct UnpackOrder {
    std::string path;
    ExtractionOrder extraction;
};

int unpack(const UnpackOrder& order, Streams streams)
{
    return extractPackage(order.path, order.extraction, streams);
}

void addExtract(CLI::App& app, Work& work)
{
    const auto [command, order] =
        addCommand<UnpackOrder>(app, "extract", "Unpack files of a package", work, unpack);
    command->add_option("FILE", order->path, "The package")->required();
    command->add_option("-d,--directory", order->extraction.folder, "Folder to unpack into");
    command->add_flag("--force", order->extraction.force, "Replace files that exist");
    command->add_option("NAME", order->extraction.names, "Files to unpack; without any, all");
}

void addSimulate(CLI::App& app, Work& work)
{
    const auto [command, order] = addCommand<SimulateOrder>(
        app, "simulate", "Say what an update would do with a printer, without one", work, simulate);
    command->add_option("PACKAGE", order->path, "The package, or the folder with VYMBINDDATA")
        ->required();
    command
        ->add_option("--installed", order->installed, "Firmware that the printer has; repeatable")
        ->type_name("NAME=VERSION")
        ->allow_extra_args(false);
    command->add_option("--model", order->model, "The printer's model; without it the package's");
    command->add_flag("--no-status-query", order->noStatusQuery,
                      "The printer does not say how far it has written");
    command->add_flag("--table", order->table,
                      "Also list installed versions against decisions for every firmware");
    command->add_flag("--json", order->json, "Write the result as JSON");
}

void addRehearse(CLI::App& app, Work& work)
{
    const auto [command, order] = addCommand<RehearseOrder>(
        app, "rehearse", "Run a whole update against a virtual printer on this computer", work,
        rehearsePackage);
    command->add_option("PACKAGE", order->path, "The package, or the folder with VYMBINDDATA")
        ->required();
    command
        ->add_option("--installed", order->installed,
                     "Firmware that the printer has; repeatable; without any, what the package"
                     " updates")
        ->type_name("NAME=VERSION")
        ->allow_extra_args(false);
    command->add_flag("--quick", order->quick, "Without the pauses that a real printer needs");
}

void addInit(CLI::App& app, Work& work)
{
    const auto [command, order] = addCommand<InitOrder>(
        app, "init", "Write a description to begin a package with", work, writeDescription);
    command->add_option("-o,--output", order->path, "The file to write; - for standard output")
        ->capture_default_str();
    command->add_option("--model", order->model, "The printer's model")->capture_default_str();
    command
        ->add_option("--firmware", order->firmware,
                     "A firmware of the package; repeatable; without any, an example row")
        ->type_name("NAME=VERSION:FILE[:DISPLAY NAME]")
        ->allow_extra_args(false);
    command->add_flag("--force", order->force, "Replace the file if it exists");
}

void addDiff(CLI::App& app, Work& work)
{
    const auto [command, order] = addCommand<DiffOrder>(
        app, "diff", "Say what differs between two packages (exit code 1 where they do)", work,
        diffFiles);
    command->add_option("OLD", order->before, "A package")->required();
    command->add_option("NEW", order->after, "Another one")->required();
    command->add_flag("--json", order->json, "Write the result as JSON");
}

void addBundle(CLI::App& app, Work& work)
{
    const auto [command, order] = addCommand<BundleOrder>(
        app, "bundle", "Fill a folder with what customers need: package, programs, instructions",
        work, bundlePackage);
    command->add_option("-o,--output", order->folder, "The folder to fill, a new or an empty one")
        ->type_name("FOLDER")
        ->required();
    command
        ->add_option("--debs", order->debs,
                     "Put in the Debian packages of this folder, not the bare programs")
        ->type_name("FOLDER");
    command->add_option("PACKAGE", order->package, "The package, or the folder with VYMBINDDATA")
        ->required();
}

} // namespace

int runProgram(int argc, const char* const* argv, Streams streams)
{
    CLI::App app("Makes, checks, tries and unpacks firmware update packages", "vympack");
    app.require_subcommand(1);
    app.set_version_flag("--version", "vympack " VYMPACK_VERSION);
    app.set_help_all_flag("--help-all", "Print the help of every command");
    app.footer(kFooter);
    Work work;
    for (const auto add : {addInit, addMake, addCheck, addSimulate, addDiff, addRehearse, addList,
                           addExtract, addBundle})
        add(app, work);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, streams.results, streams.errors) == 0 ? kExitDone : kExitUsage;
    }
    catchInterrupts();
    const int code = work(streams);
    if (!streams.results.flush()) {
        streams.errors << "vympack: the result cannot be written\n";
        return kExitNoOutput;
    }
    return interrupted() ? kExitInterrupted : code;
}

} // namespace vympack
