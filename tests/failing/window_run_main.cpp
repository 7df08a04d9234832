// SPDX-License-Identifier: MIT
// One run of the window, for calls that fail meanwhile: failing_window PACKAGE-FOLDER ADDRESS
// Shows the wizard without a screen, starts the update as a user does, and prints the title's key
// of the message at the end. Counting of the calls begins when the update has started.
#include "tests/UI/Wizard.h"
#include "tests/support/ScriptedTime.h"

#include <QApplication>
#include <QTest>
#include <cstdio>
#include <dlfcn.h>

namespace {

void beginCounting()
{
    using Begin = void (*)();
    if (const auto begin = reinterpret_cast<Begin>(dlsym(RTLD_DEFAULT, "failing_calls_begin")))
        begin();
}

} // namespace

int main(int argc, char** argv)
{
    constexpr unsigned long kFactor = 20;
    constexpr int kLongestRun = 60'000 * VYMKIT_TEST_SLOWNESS;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const ShortPauses pauses(kFactor, 2 * VYMKIT_TEST_SLOWNESS);
    Wizard wizard;
    wizard.noPackage();
    Package::openFolder(argv[1]);
    wizard.open().toPrinters();
    wizard.find<InputNSMatrixControl>("_IPAddressMatrix").selectTextAtColumn(0);
    for (const char* c = argv[2]; *c != '\0'; ++c)
        QTest::keyClick(QApplication::focusWidget(), *c);
    wizard.press("_selDev1NextBtn");
    wizard.alerts.queueAnswer(alert::kDefault); // to the question
    wizard.alerts.queueAnswer(alert::kDefault); // to the message
    wizard.controller->startUpdateAction();
    beginCounting();
    const bool ended =
        QTest::qWaitFor([&wizard] { return wizard.controller->hasEnded(); }, kLongestRun);
    if (!ended)
        return 1;
    std::puts(wizard.alerts.asked().back().title.c_str());
    return 0;
}
