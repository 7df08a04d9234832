// vympack: makes, lists, unpacks and checks package containers.
#include "Tools/vympack/Commands.h"
#include "Tools/vympack/Interrupt.h"

#include <CLI/CLI.hpp>
#include <cstdio>
#include <exception>
#include <iostream>

namespace {

constexpr auto kExamples = R"(Examples:
  vympack make -o VYMBINDDATA VYMINFO.txt main.bin boot.bin
  vympack check VYMBINDDATA
  vympack list --json VYMBINDDATA
  vympack extract VYMBINDDATA -d unpacked main.bin

Exit codes: 0 done, 1 defects found or something refused, 64 wrong usage, 66 a file cannot be
read, 70 out of memory or another failure inside, 73 a result cannot be written.)";

struct Arguments {
    std::string package;
    std::vector<std::string> inputs;
    vympack::ExtractionOrder order;
    bool json = false;
};

void addMake(CLI::App& app, Arguments& arguments)
{
    auto* make = app.add_subcommand("make", "Make a package out of files, if they pass all checks");
    make->add_option("-o,--output", arguments.package, "The package to write")->required();
    make->add_option("INPUT", arguments.inputs, "Files to put in, VYMINFO.txt among them")
        ->required();
}

CLI::App* addReading(CLI::App& app, Arguments& arguments, const char* name, const char* what)
{
    auto* command = app.add_subcommand(name, what);
    command->add_option("FILE", arguments.package, "The package")->required();
    return command;
}

void describe(CLI::App& app, Arguments& arguments)
{
    app.require_subcommand(1);
    app.set_version_flag("--version", "vympack " VYMPACK_VERSION);
    app.set_help_all_flag("--help-all", "Print the help of every command");
    app.footer(kExamples);
    addMake(app, arguments);
    auto* list = addReading(app, arguments, "list", "List the files in a package");
    auto* extract = addReading(app, arguments, "extract", "Unpack files of a package");
    auto* check = addReading(app, arguments, "check", "Name everything that is wrong in a package");
    for (auto* command : {list, check})
        command->add_flag("--json", arguments.json, "Write the result as JSON");
    extract->add_option("-d,--directory", arguments.order.folder, "Folder to unpack into");
    extract->add_flag("--force", arguments.order.force, "Replace files that exist");
    extract->add_option("NAME", arguments.order.names, "Files to unpack; without any, all");
}

int run(const CLI::App& app, const Arguments& arguments)
{
    const vympack::Streams streams{std::cout, std::cerr};
    if (app.got_subcommand("make"))
        return vympack::makePackage(arguments.package, arguments.inputs, streams);
    if (app.got_subcommand("list"))
        return vympack::listPackage(arguments.package, arguments.json, streams);
    if (app.got_subcommand("extract"))
        return vympack::extractPackage(arguments.package, arguments.order, streams);
    return vympack::checkPackage(arguments.package, arguments.json, streams);
}

int parseAndRun(int argc, char** argv)
{
    CLI::App app("Makes, lists, unpacks and checks firmware update packages", "vympack");
    Arguments arguments;
    describe(app, arguments);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? vympack::kExitDone : vympack::kExitUsage;
    }
    vympack::catchInterrupts();
    const int code = run(app, arguments);
    return std::cout.flush() ? code : vympack::kExitNoOutput;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return parseAndRun(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "vympack: %s\n", error.what());
        return vympack::kExitBroken;
    }
}
