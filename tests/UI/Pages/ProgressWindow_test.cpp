// SPDX-License-Identifier: MIT
// The window that takes the wizard's place during a run.
#include "tests/UI/WizardRun.h"
#include "tests/support/ScriptedTime.h"

#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

namespace {

using ::testing::ElementsAre;

class ProgressWindows : public RunInTheWizard { };

TEST_F(ProgressWindows, BeginsWithTheProgressWindowInPlaceOfTheWizard)
{
    beginWithOneFirmware();
    EXPECT_FALSE(wizard.window().isVisible());
    EXPECT_TRUE(wizard.window("_updateWindow").isVisible());
    EXPECT_EQ(line(), "State_Connection");
    EXPECT_EQ(bar(), 0);
    EXPECT_TRUE(wizard.find<BusySign>("_progressAnimation").isAnimated());
    EXPECT_FALSE(wizard.find<QLabel>("_updateWdwWarningImgView").pixmap().isNull());
    EXPECT_FALSE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_THAT(worker.calls(), ElementsAre("create", "start none 127.0.0.1 5001", "polling 500"));
}

TEST_F(ProgressWindows, ClosingTheWindowIsRefusedWithTheReasonOnIt)
{
    begin();
    auto& window = wizard.window("_updateWindow");
    EXPECT_FALSE(window.close());
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(wizard.text("_closeRefusedTxt"), "Update_CloseRefused");
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_FALSE(window.close());
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
    EXPECT_FALSE(wizard.controller->hasEnded());
}

TEST_F(ProgressWindows, EscapeDoesNothingDuringTheRun)
{
    begin();
    auto& window = wizard.window("_updateWindow");
    ASSERT_TRUE(becomesActive(window));
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_TRUE(window.isVisible());
    EXPECT_FALSE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    EXPECT_EQ(wizard.alerts.asked().size(), 1U);
}

TEST_F(ProgressWindows, TheWindowIsWideEnoughForItsWidestLineFromTheStartOn)
{
    begin();
    const auto& progress = wizard.find<QLabel>("_progressCmtTxt");
    settle();
    const auto metrics = progress.fontMetrics();
    for (const auto* key : {"State_Connection", "State_CheckVersion_Plural",
                            "State_PrepUpdate_Plural", "State_WriteUpdate_Plural", "State_Updated"})
        EXPECT_GE(progress.width(), metrics.horizontalAdvance(QLatin1String(key))) << key;
    const auto& attention = wizard.find<QLabel>("_attentionCmtTxt");
    EXPECT_GE(attention.height(), attention.heightForWidth(attention.width()));
}

TEST_F(ProgressWindows, ExplainsALongSilenceUntilSomethingChanges)
{
    ScriptedTime time;
    begin();
    look(state_writing, 1, 4);
    const auto& note = wizard.find<QLabel>("_quietTxt");
    time.advance(WatchedRun::kQuietHint - 1);
    look(state_writing, 1, 4);
    EXPECT_FALSE(note.isVisible());
    time.advance(1);
    look(state_writing, 1, 4);
    EXPECT_TRUE(note.isVisible());
    EXPECT_EQ(note.text(), "Update_Quiet");
    time.advance(1000);
    look(state_writing, 2, 4);
    EXPECT_FALSE(note.isVisible());
}

// As little room as on 800 x 480 at 150 % with a usual font, or with 24 points on 1280 x 800.
TEST_F(ProgressWindows, TheWindowFitsOnASmallScreenAndKeepsProgressAndReasonOnIt)
{
    const auto usual = QApplication::font();
    auto large = usual;
    large.setPointSizeF(26);
    QApplication::setFont(large);
    const Language english("en");
    begin();
    auto& window = wizard.window("_updateWindow");
    look(state_writing, 1, 2);
    window.close(); // refused
    settle();
    EXPECT_TRUE(window.screen()->availableGeometry().contains(window.geometry()));
    const auto place = [](const QWidget& widget) {
        return QRect(widget.mapToGlobal(QPoint()), widget.size());
    };
    const auto& area = wizard.find<QScrollArea>("updateTextsArea");
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    for (const auto* name : {"_progressCmtTxt", "_firmwareNameTxt", "_updatePrg"}) {
        EXPECT_TRUE(place(window).contains(place(wizard.find(name)))) << name;
        EXPECT_FALSE(place(area).intersects(place(wizard.find(name)))) << name;
    }
    EXPECT_TRUE(place(area).contains(place(wizard.find("_closeRefusedTxt"))));
    QApplication::setFont(usual);
}

TEST_F(ProgressWindows, TheWindowFitsAgainAfterTheFontHasChanged)
{
    const Language english("en");
    begin();
    const auto usual = QApplication::font();
    auto large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.3);
    QApplication::setFont(large);
    expectNothingCut(wizard.window("_updateWindow"));
    QApplication::setFont(usual);
}

class ProgressWindowIn : public ProgressWindows,
                         public ::testing::WithParamInterface<const char*> { };

TEST_P(ProgressWindowIn, CutsNoTextOff)
{
    const Language table(GetParam());
    begin();
    expectNothingCut(wizard.window("_updateWindow"));
    EXPECT_EQ(wizard.find<QScrollArea>("updateTextsArea").verticalScrollBar()->maximum(), 0);
    look(state_writing, 1, 2);
    wizard.window("_updateWindow").close(); // refused, with the reason
    EXPECT_TRUE(wizard.find<QLabel>("_closeRefusedTxt").isVisible());
    expectNothingCut(wizard.window("_updateWindow"));
}

INSTANTIATE_TEST_SUITE_P(EveryLanguage, ProgressWindowIn, ::testing::ValuesIn(kLanguages));

} // namespace
