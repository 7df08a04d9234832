// SPDX-License-Identifier: MIT
// The words of both windows: every control has the text of its key, no text is cut off in any
// language, and a screen reader and the keyboard reach every control.
#include "tests/UI/Wizard.h"

#include <QAccessible>
#include <QFontDatabase>
#include <QTranslator>
#include <gtest/gtest.h>

namespace {

QString titleOf(const Wizard& wizard, const char* table, int column)
{
    const auto* model = wizard.find<QTableView>(table).model();
    return model->headerData(column, Qt::Horizontal).toString();
}

void expectTexts(const Wizard& wizard,
                 std::initializer_list<std::pair<const char*, const char*>> all)
{
    for (const auto& [name, key] : all) {
        const auto& control = wizard.find(name);
        EXPECT_EQ(control.property("text").toString(), key) << name;
    }
}

// Every page once, with a list of printers.
template <typename Visit> void visitPages(Wizard& wizard, Visit visit)
{
    wizard.printers({{"A printer with a rather long name in the room at the end", "net:192.0.2.1"},
                     {"C", "usb://m/p?serial=3"}});
    wizard.open();
    visit();
    wizard.press("_openingNextBtn");
    visit();
    wizard.press("_prefNextBtn");
    wizard.waitForPrinters();
    visit();
    wizard.press(wizard.setup.isUseDriverOnly ? "_selDev2NextBtn" : "_selDev1NextBtn");
    EXPECT_EQ(wizard.page(), "ConfirmationScreen");
    visit();
}

} // namespace

TEST(TextsOfTheWindow, HaveTheirKeys)
{
    Wizard wizard;
    wizard.open();
    EXPECT_EQ(wizard.window().windowTitle(), "Morix Vymkit");
    EXPECT_EQ(wizard.window("_updateWindow").windowTitle(), "Morix Vymkit");
    expectTexts(wizard,
                {{"_AppCommentTxtField", "Start_Description"},
                 {"_targetDeviceTitle", "Start_DevNameTitle"},
                 {"_firmInfoTxt", "Start_FirmInfoTitle"},
                 {"_openingVersionTxt", "Start_VersionTxt"},
                 {"_openingNextBtn", "Next"},
                 {"_openingCancelBtn", "Cancel"},
                 {"_updatePrepTitleTxt", "Preference_Description"},
                 {"_updatePrepVerificationTxt", "Preference_CheckPointTitle"},
                 {"_updatePrepItemsTxt", "Preference_CheckPoint"},
                 {"_updatePrepModeTxt", ""},
                 {"_prefBackBtn", "Back"},
                 {"_prefNextBtn", "Next"},
                 {"_prefCancelBtn", "Cancel"},
                 {"_selectDeviceTitle", "Device_Description"},
                 {"_selectDeviceCmt", "Device_Comment"},
                 {"_assignPrtNameBtnCell", "Device_SpecifyPrinteName"},
                 {"_assignIPAddressBtnCell", "Device_SpecifyIPAddress"},
                 {"_selDev1BackBtn", "Back"},
                 {"_selDev1NextBtn", "Next"},
                 {"_selDev1CancelBtn", "Cancel"},
                 {"_updateVerificationTitle", "Guide_Description"},
                 {"_updateVerificationTxt", "Guide_Comment"},
                 {"_targetDevNameTitle", "Guide_TargetDeviceTitle"},
                 {"_portNameTitle", "Guide_PortNameTitle"},
                 {"_startUpdateCmtTxt", "Guide_StartUpdateCmt"},
                 {"_prepBackBtn", "Back"},
                 {"_prepStartBtn", "Start"},
                 {"_prepCancelBtn", "Cancel"},
                 {"_updateCmtTxt", "Update_Description"},
                 {"_attentionCmtTxt", "Update_Precaution"},
                 {"_progressCmtTxt", ""},
                 {"_selectDeviceTitle2", "Device_Description"},
                 {"_selectDeviceCmt2", "Device_Comment2"},
                 {"_assignPrtNameTxt2", "Device_SpecifyPrinteName"},
                 {"_selDev2BackBtn", "Back"},
                 {"_selDev2NextBtn", "Next"},
                 {"_selDev2CancelBtn", "Cancel"}});
    EXPECT_EQ(titleOf(wizard, "_firmInfoTblView", 0), "Start_ListTypeTitle");
    EXPECT_EQ(titleOf(wizard, "_firmInfoTblView", 1), "Start_ListVerTitle");
    for (const auto* table : {"_prtListTblView", "_prtListTblView2"}) {
        EXPECT_EQ(titleOf(wizard, table, 0), "Device_ListPrinterName");
        EXPECT_EQ(titleOf(wizard, table, 1), "Device_ListPortName");
    }
}

TEST(TextsOfTheWindow, TellTheProgramsVersion)
{
    const Language english("en");
    Wizard wizard;
    wizard.open();
    EXPECT_TRUE(wizard.text("_openingVersionTxt").contains("1.2.3"));
}

TEST(TextsOfTheWindow, AreFormatsThatNoStrayPercentSignBreaks)
{
    class Percent : public QTranslator {
    public:
        [[nodiscard]] QString translate(const char*, const char*, const char*, int) const override
        {
            return QStringLiteral("%s%n%d 100% %% %@");
        }
        [[nodiscard]] bool isEmpty() const override { return false; }
    };
    Percent percent;
    QCoreApplication::installTranslator(&percent);
    Wizard wizard;
    wizard.open();
    EXPECT_EQ(wizard.text("_AppCommentTxtField"), "%s%n%d 100% % %@");
    EXPECT_EQ(wizard.text("_openingVersionTxt"), "1.2.3%n1.2.3 100% % 1.2.3");
}

TEST(TextsOfTheWindow, AreNotCutInAnyLanguageOnASmallOrALargeScreen)
{
    for (const auto* language : kLanguages) {
        const Language table(language);
        for (const QSize size : {QSize(800, 480), QSize(420, 420), QSize(1600, 1000)}) {
            for (const bool isDriverOnly : {false, true}) {
                SCOPED_TRACE(std::string(language) + ' ' + std::to_string(size.width()));
                Wizard wizard;
                wizard.setup.isUseDriverOnly = isDriverOnly;
                visitPages(wizard, [&] {
                    wizard.window().resize(size);
                    expectNothingCut(wizard.window());
                });
            }
        }
    }
}

TEST(TextsOfTheWindow, LetTheWindowBeSmallInAnyLanguage)
{
    constexpr QSize kSmallScreen(800, 480);
    for (const auto* language : kLanguages) {
        const Language table(language);
        Wizard wizard;
        wizard.open();
        const auto least = wizard.window().minimumSizeHint();
        EXPECT_LE(least.width(), kSmallScreen.width()) << language;
        EXPECT_LE(least.height(), kSmallScreen.height()) << language;
    }
}

TEST(TextsOfTheWindow, GiveEveryControlANameAndARole)
{
    const Language english("en");
    for (const bool isDriverOnly : {false, true}) {
        Wizard wizard;
        wizard.setup.isUseDriverOnly = isDriverOnly;
        visitPages(wizard, [&wizard] {
            for (auto* control : wizard.window().findChildren<QWidget*>()) {
                if (!control->isVisible() || control->focusPolicy() == Qt::NoFocus)
                    continue;
                auto* seen = QAccessible::queryAccessibleInterface(control);
                ASSERT_NE(seen, nullptr);
                EXPECT_NE(seen->text(QAccessible::Name), "") << control->objectName().toStdString();
                EXPECT_NE(seen->role(), QAccessible::NoRole) << control->objectName().toStdString();
            }
        });
    }
}

TEST(TextsOfTheWindow, HaveTheirOwnMnemonicOnEveryPage)
{
    for (const auto* language : kLanguages) {
        const Language table(language);
        Wizard wizard;
        visitPages(wizard, [&] {
            QStringList keys;
            for (const auto* button : wizard.window().findChildren<QAbstractButton*>()) {
                if (!button->isVisible() || button->text().isEmpty())
                    continue;
                const auto key = button->shortcut().toString();
                EXPECT_NE(key, "") << language << ' ' << button->text().toStdString();
                EXPECT_FALSE(keys.contains(key)) << language << ' ' << key.toStdString();
                keys << key;
            }
        });
    }
}

TEST(TextsOfTheWindow, ReadFromTheRightWhereTheLanguageDoes)
{
    QApplication::setLayoutDirection(Qt::RightToLeft);
    Wizard wizard;
    visitPages(wizard, [&wizard] { expectNothingCut(wizard.window()); });
    const auto left = [&wizard](const char* name) {
        return wizard.find(name).mapTo(&wizard.window(), QPoint()).x();
    };
    EXPECT_LT(left("_prepStartBtn"), left("_prepBackBtn"));
    EXPECT_LT(left("_prepBackBtn"), left("_prepCancelBtn"));
    QApplication::setLayoutDirection(Qt::LeftToRight);
}
