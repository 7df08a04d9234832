// SPDX-License-Identifier: MIT
// The first page's view of a package.
#include "tests/UI/Wizard.h"
#include "tests/support/QueuedFiles.h"

#include <gtest/gtest.h>

namespace {

QString cell(const Wizard& wizard, int row, int column)
{
    const auto* model = wizard.find<QTableView>("_firmInfoTblView").model();
    return model->index(row, column).data().toString();
}

} // namespace

TEST(OpeningPage, ShowsTheModelAndTheFirmwareOfThePackage)
{
    Wizard wizard;
    wizard.open();
    EXPECT_EQ(wizard.page(), "OpeningPage");
    EXPECT_EQ(wizard.text("_targetDeviceTxt"), "Vymprint 200");
    const auto& table = wizard.find<QTableView>("_firmInfoTblView");
    ASSERT_EQ(table.model()->rowCount(), 2);
    EXPECT_EQ(cell(wizard, 0, 0), "Main controller");
    EXPECT_EQ(cell(wizard, 0, 1), "1.2.10");
    EXPECT_EQ(cell(wizard, 1, 0), "Print engine");
    EXPECT_EQ(cell(wizard, 1, 1), "1.1.5");
    EXPECT_TRUE(wizard.alerts.asked().empty());
}

TEST(OpeningPage, HasNoFirmwareThatCanBeSelected)
{
    Wizard wizard;
    wizard.open();
    auto& table = wizard.find<QTableView>("_firmInfoTblView");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(1, 0)).center());
    EXPECT_EQ(selectedRowOf(table), -1);
    QTest::keyClick(&table, Qt::Key_Down);
    QTest::keyClick(&table, Qt::Key_Space);
    QTest::keyClick(&table, Qt::Key_A, Qt::ControlModifier);
    table.selectRow(0);
    table.selectAll();
    EXPECT_EQ(selectedRowOf(table), -1);
    EXPECT_FALSE(table.selectionModel()->hasSelection());
}

TEST(OpeningPage, GoesOnWithAPackageThatShowsNoFirmware)
{
    Wizard wizard;
    wizard.description({"MODELNAME \"Vymprint 200\"", "PLATFORMVERSION MACOS=0"}).open();
    EXPECT_EQ(wizard.find<QTableView>("_firmInfoTblView").model()->rowCount(), 0);
    EXPECT_EQ(wizard.find("_firmInfoTblView").focusPolicy(), Qt::NoFocus);
    wizard.press("_openingNextBtn");
    EXPECT_EQ(wizard.page(), "PreferencePage");
}

TEST(OpeningPage, ShowsMarkupAndControlCharactersOfAPackageAsTheyStand)
{
    Wizard wizard;
    wizard.description({"MODELNAME \"<b>A\x1B[2J</b>\"", "PLATFORMVERSION MACOS=0"}).open();
    EXPECT_EQ(wizard.text("_targetDeviceTxt"), "<b>A\\x1b[2J</b>");
    EXPECT_EQ(wizard.find<QLabel>("_targetDeviceTxt").textFormat(), Qt::PlainText);
}

TEST(OpeningPage, SaysWhoSignedThePackageBelowItsDescription)
{
    Wizard wizard;
    wizard.setup.packageSignature = "maker.pub (Vymprint 200, release 1.2.10)";
    wizard.open();
    EXPECT_EQ(wizard.text("_AppCommentTxtField"), "Start_Description\n\nStart_SignedWith");
}

TEST(OpeningPage, ShowsTheSignatureInEveryLanguageAsPlainText)
{
    for (const auto* language : kLanguages) {
        SCOPED_TRACE(language);
        const Language texts(language);
        Wizard wizard;
        wizard.setup.packageSignature = "maker.pub (<b>release</b> 1.2.10)";
        wizard.open();
        EXPECT_TRUE(
            wizard.text("_AppCommentTxtField").contains("maker.pub (<b>release</b> 1.2.10)"));
        EXPECT_EQ(wizard.find<QLabel>("_AppCommentTxtField").textFormat(), Qt::PlainText);
        expectNothingCut(wizard.window());
    }
}

TEST(OpeningPage, SaysNothingOfASignatureThatNobodyChecked)
{
    Wizard wizard;
    wizard.open();
    EXPECT_EQ(wizard.text("_AppCommentTxtField"), "Start_Description");
}

namespace {

void openWithoutPackage(Wizard& wizard, QueuedFiles& files)
{
    wizard.setup.files = &files;
    wizard.setup.isPackageMissing = true;
    wizard.setup.packageProblem = "There is none.";
    wizard.noPackage().open();
}

} // namespace

TEST(OpeningPage, SaysThatThereIsNoPackageAndGoesNoFurther)
{
    QueuedFiles files;
    Wizard wizard;
    openWithoutPackage(wizard, files);
    EXPECT_TRUE(wizard.alerts.asked().empty());
    EXPECT_EQ(wizard.text("_targetDeviceTxt"), "Start_NoPackageTitle");
    EXPECT_FALSE(wizard.find("_targetDeviceTitle").isVisible());
    EXPECT_EQ(wizard.text("_AppCommentTxtField"), "Start_NoPackage");
    EXPECT_FALSE(wizard.find("_firmInfoTblView").isVisible());
    EXPECT_FALSE(wizard.find("_openingNextBtn").isEnabled());
    EXPECT_EQ(wizard.focus(), "_choosePackageBtn");
}

TEST(OpeningPage, EndsWithThePackageThatWasChosenByKeyboard)
{
    QueuedFiles files;
    Wizard wizard;
    openWithoutPackage(wizard, files);
    wizard.key(Qt::Key_Space); // and no file is chosen
    EXPECT_FALSE(wizard.controller->hasEnded());
    files.queueFile("/media/stick/VYMBINDDATA");
    wizard.key(Qt::Key_Space);
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_EQ(wizard.controller->chosenPackage(), "/media/stick/VYMBINDDATA");
}

TEST(OpeningPage, HasRoomForTheMissingPackageInEveryLanguage)
{
    for (const auto* language : kLanguages) {
        SCOPED_TRACE(language);
        const Language texts(language);
        QueuedFiles files;
        Wizard wizard;
        openWithoutPackage(wizard, files);
        expectNothingCut(wizard.window());
    }
}

TEST(OpeningPage, TiesItsCaptionsToTheValues)
{
    Wizard wizard;
    wizard.open();
    EXPECT_EQ(wizard.find<QLabel>("_targetDeviceTitle").buddy(), &wizard.find("_targetDeviceTxt"));
    EXPECT_EQ(wizard.find<QLabel>("_firmInfoTxt").buddy(), &wizard.find("_firmInfoTblView"));
}
