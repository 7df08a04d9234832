// The wizard: reads its command line, plugs in the operating system's side, shows the window.
#include "Platform/EndingSignals.h"
#include "Platform/SystemPrintServer.h"
#include "Platform/SystemUsbHost.h"
#include "UI/AppController.h"
#include "UI/Package/PackageFacts.h"
#include "UI/Text/TextKeys.h"
#include "UI/Widgets/MessageBoxAlerts.h"
#include "UI/WizardOptions.h"

#include <QApplication>
#include <QIcon>
#include <QLocale>
#include <QTranslator>
#include <cstdio>
#include <cstdlib>

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

MainWindowSetup windowSetup(const WizardOptions& options, Alerts& alerts)
{
    MainWindowSetup setup;
    setup.formFile = AppController::formFile();
    setup.alerts = &alerts;
    setup.version = VYMKIT_VERSION;
    const auto opened = openPackage(options.package);
    setup.packageProblem = opened.problem;
    if (opened.package && opened.package->signature)
        setup.packageSignature =
            opened.package->signature->key + " (" + opened.package->signature->comment + ")";
    if (!setup.packageProblem.empty())
        say(setup.packageProblem);
    setup.findPrinters = PrinterSearchThread::throughServer(
        makeSystemPrintServer(),
        QCoreApplication::translate(kTextContext, textkey::kUsbPrinter).toStdString());
    return setup;
}

int runWizard(const WizardOptions& options, const EndingSignals& endings)
{
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
    AppController controller(setup);
    if (controller.problem().isEmpty()) {
        const int code = controller.run();
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

} // namespace

int main(int argc, char** argv)
{
    auto options = parseWizardOptions(argc, argv);
    if (options.help || options.version) {
        const auto words = options.help ? wizardHelpText() : "vymkit " VYMKIT_VERSION "\n";
        return std::fputs(words.c_str(), stdout) >= 0 ? 0 : kUsage;
    }
    if (!hasDisplay()) {
        say("there is no display. On a computer without one, use vymkit-cli.");
        return kNoDisplay;
    }
    const EndingSignals endings; // before the toolkit's threads begin
    const QApplication application(argc, argv); // takes the toolkit's own options away
    QApplication::setQuitOnLastWindowClosed(false);
    QGuiApplication::setDesktopFileName(QStringLiteral("org.vymkit.Vymkit"));
    options = parseWizardOptions(argc, argv);
    if (!options.usageError.empty()) {
        say(options.usageError + " See vymkit --help.");
        return kUsage;
    }
    UsbHost::plugIn(systemUsbHost());
    return runWizard(options, endings);
}
