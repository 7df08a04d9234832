// SPDX-License-Identifier: MIT
// The wizard: reads its command line, plugs in the operating system's side, shows the window.
#include "Platform/EndingSignals.h"
#include "Platform/StandardStreams.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemPrinterLocks.h"
#include "Platform/SystemUsbHost.h"
#include "UI/AppController.h"
#include "UI/Package/PackageFacts.h"
#include "UI/Package/PackagePlace.h"
#include "UI/Run/LogFolder.h"
#include "UI/Support/HelpReport.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/FileDialogs.h"
#include "UI/Widgets/MessageBoxAlerts.h"
#include "UI/WizardOptions.h"

#include <QApplication>
#include <QIcon>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>
#include <vector>

namespace {

// Exit codes, as sysexits.h counts.
constexpr int kUsage = 64;
constexpr int kNoForm = 66; // an input that cannot be opened
constexpr int kNoDisplay = 69; // a service that is not there

void say(const std::string& words)
{
    std::fprintf(stderr, "vymkit: %s\n", words.c_str());
}

// The toolkit itself would end the process with a core file.
bool hasDisplay()
{
    const auto isSet = [](const char* name) {
        const char* value = std::getenv(name);
        return value != nullptr && *value != '\0';
    };
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

// Neither named nor found: the window lets the user choose one.
bool isPackageMissing(const WizardOptions& options)
{
    return !options.package.has_value() && access(findPackage({}).file.c_str(), F_OK) != 0;
}

ReportOffer::Compose reportComposer(const WizardOptions& options, OpenedPackage opened,
                                    std::shared_ptr<PrintServer> server)
{
    return [path = options.package, opened = std::move(opened),
            server = std::move(server)](const std::string& printer) {
        helpreport::Facts facts;
        facts.program = "vymkit " VYMKIT_VERSION;
        facts.packagePath = path;
        facts.doctor.printServer = server.get();
        facts.doctor.program = "vymkit";
        facts.doctor.logFolder = logFolder();
        const bool isPortString = printer.find(':') != std::string::npos;
        if (!printer.empty())
            (isPortString ? facts.doctor.uri : facts.doctor.address) = printer;
        return helpreport::compose(opened, facts);
    };
}

MainWindowSetup windowSetup(const WizardOptions& options, Alerts& alerts)
{
    const std::shared_ptr<PrintServer> server = makeSystemPrintServer();
    MainWindowSetup setup;
    setup.formFile = AppController::formFile();
    setup.alerts = &alerts;
    setup.version = VYMKIT_VERSION;
    const auto opened = openPackage(options.package);
    setup.packageProblem = opened.problem;
    setup.packageReason = opened.reason;
    if (opened.package && opened.package->signature)
        setup.packageSignature =
            opened.package->signature->key + " (" + opened.package->signature->comment + ")";
    setup.isPackageMissing = isPackageMissing(options);
    setup.composeReport = reportComposer(options, opened, server);
    if (!setup.packageProblem.empty())
        say(setup.packageProblem);
    setup.findPrinters = PrinterSearchThread::throughServer(
        server, QCoreApplication::translate(kTextContext, textkey::kUsbPrinter).toStdString());
    return setup;
}

// chosen: the package that the user chose where there was none.
int runWizard(const WizardOptions& options, const EndingSignals& endings, std::string& chosen)
{
    QTranslator toolkit; // the words of its own dialogs
    if (toolkit.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                     QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&toolkit);
    QTranslator english; // what the user's own language lacks
    if (english.load(QStringLiteral(":/translations/vymkit_en")))
        QCoreApplication::installTranslator(&english);
    QTranslator local;
    if (local.load(QLocale(), QStringLiteral("vymkit"), QStringLiteral("_"),
                   QStringLiteral(":/translations")))
        QCoreApplication::installTranslator(&local);
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/vymkit.svg")));
    MessageBoxAlerts alerts;
    auto setup = windowSetup(options, alerts);
    setup.endings = &endings;
    FileDialogs files;
    setup.files = &files;
    AppController controller(setup);
    if (controller.problem().isEmpty()) {
        const int code = controller.run();
        chosen = controller.chosenPackage();
        // A print server or a device that does not answer delays no exit: nothing that the
        // search holds needs more than the end of the process.
        if (controller.isStillSearching())
            std::_Exit(code);
        return code;
    }
    say("the window cannot be made of '" + setup.formFile.toStdString()
        + "': " + controller.problem().toStdString());
    return kNoForm;
}

// The process can open only one package, and its first look found none.
int startAgain(std::vector<char*> words, std::string package)
{
    std::string option = "--package";
    words.push_back(option.data());
    words.push_back(package.data());
    words.push_back(nullptr);
    execv("/proc/self/exe", words.data());
    say("the program cannot be started again: " + std::string(std::strerror(errno)) + ".");
    return kNoForm;
}

int runWindow(int argc, char** argv, std::string& chosen)
{
    const EndingSignals endings; // before the toolkit's threads begin
    const QApplication application(argc, argv); // takes the toolkit's own options away
    QApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vymkit.Vymkit"));
    const auto options = parseWizardOptions(argc, argv);
    if (!options.usageError.empty()) {
        say(options.usageError + " See vymkit --help.");
        return kUsage;
    }
    UsbHost::plugIn(systemUsbHost());
    PrinterLocks::plugIn(systemPrinterLocks());
    return runWizard(options, endings, chosen);
}

} // namespace

int main(int argc, char** argv)
{
    occupyStandardStreams();
    const auto options = parseWizardOptions(argc, argv);
    if (options.help || options.version) {
        const auto words = options.help ? wizardHelpText() : "vymkit " VYMKIT_VERSION "\n";
        return std::fputs(words.c_str(), stdout) >= 0 ? 0 : kUsage;
    }
    if (!hasDisplay()) {
        say("there is no display. On a computer without one, use vymkit-cli.");
        return kNoDisplay;
    }
    const std::vector<char*> words(argv, argv + argc);
    std::string chosen;
    const int code = runWindow(argc, argv, chosen);
    return chosen.empty() ? code : startAgain(words, chosen);
}
