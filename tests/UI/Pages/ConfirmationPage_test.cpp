// SPDX-License-Identifier: MIT
#include "tests/UI/Wizard.h"

#include <gtest/gtest.h>

TEST(ConfirmationPage, ShowsTheTargetOfTheRun)
{
    Wizard wizard;
    wizard.printers({{"A", "net:192.0.2.1"}}).open().toPrinters();
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "A");
    EXPECT_EQ(wizard.text("_portNameTxt"), "net:192.0.2.1");
}

TEST(ConfirmationPage, ShowsControlCharactersOfAPrinterAsTheyStand)
{
    Wizard wizard;
    wizard.printers({{"A\x1B[2J", "net:192.0.2.1"}}).open().toPrinters();
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "A\\x1b[2J");
}

TEST(ConfirmationPage, ShowsALongAddressToItsEndAndFromLeftToRight)
{
    const auto uri = "usb://Morix/Vymprint%20200?" + std::string(300, 'a') + "&serial=VP0012345";
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        Wizard wizard;
        wizard.printers({{"A", uri.c_str()}}).open().toPrinters();
        wizard.press("_selDev1NextBtn");
        wizard.window().resize(600, 400);
        EXPECT_EQ(wizard.text("_portNameTxt"), QString::fromStdString(uri));
        expectNothingCut(wizard.window());
        const auto& label = wizard.find<QLabel>("_portNameTxt");
        EXPECT_GT(label.height(), 2 * label.fontMetrics().height()) << "it wraps";
        auto* page = wizard.find<QStackedWidget>("_mainTabView").currentWidget();
        EXPECT_LE(label.mapTo(page, QPoint(label.width(), 0)).x(), page->width());
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
}

TEST(ConfirmationPage, ShowsTheModelOfThePackageForATypedAddress)
{
    Wizard wizard;
    wizard.open().toPrinters();
    wizard.typeAddress({"192", "0", "2", "7"});
    wizard.press("_selDev1NextBtn");
    EXPECT_EQ(wizard.text("_targetDevNameTxt"), "Vymprint 200");
    EXPECT_EQ(wizard.text("_portNameTxt"), "192.0.2.7");
}
