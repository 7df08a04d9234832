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
