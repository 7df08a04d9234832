#include "UI/WizardOptions.h"

#include "UI/Text/PlainText.h"

#include <CLI/CLI.hpp>

WizardOptions parseWizardOptions(int argc, const char* const* argv)
{
    WizardOptions options;
    std::string folder;
    try {
        CLI::App app;
        app.set_help_flag();
        app.add_option("-p,--package", folder);
        app.add_flag("-h,--help", options.help);
        app.add_flag("--version", options.version);
        if (argc > 0) // a program may be started with nothing at all
            app.parse(argc, argv);
        if (app.count("--package") != 0)
            options.packageFolder = folder;
    } catch (const CLI::ParseError& error) {
        options.usageError = plainText(error.what()) + ".";
    }
    return options;
}

std::string wizardHelpText()
{
    return "Usage: vymkit [--package FOLDER]\n"
           "\n"
           "Leads through the update of a printer's firmware, page by page. On a computer without\n"
           "a display, use vymkit-cli instead.\n"
           "\n"
           "Options:\n"
           "  -p, --package FOLDER   the folder that holds the update package VYMBINDDATA;\n"
           "                         without it, the one that vymkit itself lies in\n"
           "  -h, --help             show this help\n"
           "      --version          show the version\n"
           "\n"
           "Exit codes: 0 the wizard was ended, 64 wrong usage, 66 its interface file\n"
           "MainWindow.ui cannot be read, 69 there is no display.\n";
}
