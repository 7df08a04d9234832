// SPDX-License-Identifier: MIT
// Draws every page in several languages, light and dark, for people to look at:
// window_pictures FOLDER [WIDTHxHEIGHT]. QT_SCALE_FACTOR sets the scale.
#include "UI/Pages/ResultMessage.h"
#include "UI/Widgets/AlertBox.h"
#include "VYM/ProtocolResult.h"
#include "tests/UI/Wizard.h"

#include <QApplication>
#include <QPushButton>
#include <QStyleFactory>
#include <QTranslator>
#include <cstdio>

namespace {

QPalette darkPalette()
{
    QPalette dark(QColor(53, 53, 53), QColor(42, 42, 42));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Highlight, QColor(53, 132, 228));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    return dark;
}

struct Run {
    QString folder;
    QString name;
    QSize size;
};

void draw(const Run& run, Wizard& wizard, const char* page, const char* window = "_mainwindow")
{
    auto& shown = wizard.window(window);
    if (!run.size.isEmpty() && shown.isVisible())
        shown.resize(run.size);
    QTest::qWait(20);
    const auto file = QStringLiteral("%1/%2-%3.png").arg(run.folder, run.name, QLatin1String(page));
    if (!shown.grab().save(file))
        std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
}

void drawPages(const Run& run)
{
    Wizard wizard;
    wizard.printers({{"Vymprint 200 in the copy room", "lpd://192.0.2.17/"},
                     {"Second floor", "net:192.0.2.18"},
                     {"USB Printer", "usb://Morix/Vymprint%20200?serial=VP0012345"}});
    wizard.open();
    draw(run, wizard, "1-opening");
    wizard.press("_openingNextBtn");
    draw(run, wizard, "2-preference");
    wizard.holdSearch("Second floor");
    wizard.press("_prefNextBtn");
    draw(run, wizard, "3-searching");
    wizard.letSearchGo();
    wizard.waitForPrinters();
    draw(run, wizard, "4-printers");
    wizard.press("_assignIPAddressBtnCell");
    wizard.typeAddress({"192", "0", "2"});
    draw(run, wizard, "5-address");
    wizard.chooseRow(2);
    wizard.press("_selDev1NextBtn");
    draw(run, wizard, "6-confirmation");
    wizard.printers({});
    wizard.press("_prepBackBtn");
    wizard.waitForPrinters();
    draw(run, wizard, "7-no-printers");
}

void drawDriverOnly(const Run& run)
{
    Wizard wizard;
    wizard.printers({{"Second floor", "net:192.0.2.18"}}).driverOnly().open();
    wizard.toPrinters();
    draw(run, wizard, "8-driver-only");
    wizard.alerts.queueAnswer(alert::kDefault);
    wizard.press("_selDev2NextBtn");
    wizard.controller->startUpdateAction();
    draw(run, wizard, "9-update", "_updateWindow");
}

// The result of a run that ended in the middle, with its details folded and open.
void drawResult(const Run& run)
{
    ResultFacts facts;
    facts.sent = {{"Main controller (1/2)", true, true}, {"Print engine (2/2)", false, false}};
    facts.printer = *PrinterInfo::initWithPrinterName("Second floor", "", "net:192.0.2.18");
    facts.packageFolder = "/home/user/Downloads/firmware";
    facts.log = "/home/user/.local/state/vymkit/run-2026-01-01-120000.log";
    AlertBox box(resultMessage(result::kConnectionLost, false, facts), nullptr);
    const auto keep = [&](const char* place) {
        QTest::qWait(20);
        const auto file =
            QStringLiteral("%1/%2-%3.png").arg(run.folder, run.name, QLatin1String(place));
        if (!box.grab().save(file))
            std::fprintf(stderr, "cannot write %s\n", qPrintable(file));
    };
    box.show();
    keep("10-result");
    for (auto* button : box.findChildren<QPushButton*>()) {
        if (button->isCheckable())
            button->click();
    }
    keep("11-details");
}

} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QFont font = QApplication::font();
    font.setPointSizeF(10.5); // a usual size on desktops
    QApplication::setFont(font);
    application.setQuitOnLastWindowClosed(false);
    application.setWindowIcon(QIcon(QStringLiteral(":/icons/vymkit.svg")));
    const auto words = QApplication::arguments();
    if (words.size() < 2)
        return 64;
    const auto size = words.value(2).split(u'x');
    const auto light = QApplication::palette();
    for (const auto* language : {"en", "ja", "de", "fr", "es", "zh_CN"}) {
        QTranslator translator;
        if (translator.load(QStringLiteral(":/translations/vymkit_") + QLatin1String(language)))
            QCoreApplication::installTranslator(&translator);
        for (const bool isDark : {false, true}) {
            QApplication::setPalette(isDark ? darkPalette() : light);
            const Run run{words[1],
                          QLatin1String(language)
                              + (isDark ? QStringLiteral("-dark") : QStringLiteral("-light")),
                          size.size() == 2 ? QSize(size[0].toInt(), size[1].toInt()) : QSize()};
            drawPages(run);
            drawDriverOnly(run);
            drawResult(run);
        }
    }
    return 0;
}
