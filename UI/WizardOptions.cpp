// SPDX-License-Identifier: MIT
#include "UI/WizardOptions.h"

#include "UI/Text/PlainText.h"

#include <CLI/CLI.hpp>

WizardOptions parseWizardOptions(int argc, const char* const* argv)
{
    WizardOptions options;
    std::string package;
    std::string file;
    try {
        CLI::App app;
        app.set_help_flag();
        auto* named = app.add_option("-p,--package", package);
        app.add_option("FILE", file)->excludes(named);
        app.add_flag("-h,--help", options.help);
        app.add_flag("--version", options.version);
        if (argc > 0) // a program may be started without even its name
            app.parse(argc, argv);
        if (app.count("--package") != 0)
            options.package = package;
        else if (app.count("FILE") != 0)
            options.package = file;
    } catch (const CLI::ParseError& error) {
        options.usageError = plainText(error.what()) + ".";
    }
    return options;
}

std::string wizardHelpText()
{
    return "Usage: vymkit [OPTIONS] [FILE]\n"
           "\n"
           "Leads through the update of a printer's firmware, page by page. FILE is an update\n"
           "package; without it and --package, the file VYMBINDDATA beside the program or in\n"
           "/usr/share/vymkit. On a computer without a display, use vymkit-cli instead.\n"
           "\n"
           "Options:\n"
           "  -p, --package PACKAGE  an update package, or the folder that holds VYMBINDDATA\n"
           "  -h, --help             show this help\n"
           "      --version          show the version\n"
           "\n"
           "Exit codes: 0 the wizard was ended, 64 wrong usage, 66 its interface file\n"
           "MainWindow.ui cannot be read, 69 there is no display.\n";
}
