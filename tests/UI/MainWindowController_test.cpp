// Start-up: what the window shows of a package, and what it does without a usable one.
#include "UI/vym_etc.h"
#include "tests/UI/Wizard.h"

#include <QHeaderView>
#include <QScreen>
#include <gmock/gmock.h>
#include <iomanip>
#include <sstream>

namespace {

std::string hex(unsigned long number)
{
    std::ostringstream text;
    text << std::hex << number;
    return text.str();
}

std::string boundsRow(unsigned long lowest, unsigned long highest)
{
    return "PLATFORMVERSION MACOS=" + hex(lowest) + ' ' + hex(highest);
}

QString cell(const Wizard& wizard, int row, int column)
{
    const auto* model = wizard.find<QTableView>("_firmInfoTblView").model();
    return model->index(row, column).data().toString();
}

void expectUnsupported(const Wizard& wizard, const std::string& details)
{
    ASSERT_NE(wizard.controller, nullptr);
    EXPECT_TRUE(wizard.controller->hasEnded());
    EXPECT_FALSE(wizard.window().isVisible());
    Alert told;
    told.title = "VYM_UnSupportOS_Title";
    told.message = "VYM_UnSupportOS_Mes";
    told.details = details;
    told.style = AlertStyle::critical;
    told.defaultButton = "OK";
    EXPECT_EQ(wizard.alerts.asked(), std::vector{told});
}

} // namespace

TEST(MainWindowController, OpensWithTheModelAndTheFirmwareOfThePackage)
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

TEST(MainWindowController, ShowsTheWindowInFrontAndInTheMiddle)
{
    Wizard wizard;
    wizard.open();
    EXPECT_TRUE(wizard.window().isActiveWindow());
    const auto middle = wizard.window().screen()->availableGeometry().center();
    EXPECT_LE((wizard.window().geometry().center() - middle).manhattanLength(), 4);
}

TEST(MainWindowController, LetsNobodySelectAFirmware)
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

TEST(MainWindowController, GoesOnWithAPackageThatShowsNoFirmware)
{
    Wizard wizard;
    wizard.description({"MODELNAME \"Vymprint 200\"", "PLATFORMVERSION MACOS=0"}).open();
    EXPECT_EQ(wizard.find<QTableView>("_firmInfoTblView").model()->rowCount(), 0);
    wizard.press("_openingNextBtn");
    EXPECT_EQ(wizard.page(), "PreferencePage");
}

TEST(MainWindowController, ShowsMarkupAndControlCharactersOfAPackageAsTheyStand)
{
    Wizard wizard;
    wizard.description({"MODELNAME \"<b>A\x1B[2J</b>\"", "PLATFORMVERSION MACOS=0"}).open();
    EXPECT_EQ(wizard.text("_targetDeviceTxt"), "<b>A\\x1b[2J</b>");
    EXPECT_EQ(wizard.find<QLabel>("_targetDeviceTxt").textFormat(), Qt::PlainText);
}

TEST(MainWindowController, HoldsTheSystemAgainstTheBoundsOfThePackage)
{
    const auto system = get_system_version();
    const struct {
        const char* why;
        std::string row;
        bool isSupported;
    } rows[] = {
        {"every system", "PLATFORMVERSION MACOS=0", true},
        {"exactly this one", boundsRow(system, system), true},
        {"newer ones only", boundsRow(system + 1, system + 2), false},
        {"newer ones without end", "PLATFORMVERSION MACOS=" + hex(system + 1), false},
        {"older ones only", boundsRow(0, system - 1), false},
        {"no bounds", "PORTNO 1", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        Wizard wizard;
        wizard.description({row.row}).open();
        EXPECT_EQ(wizard.controller->hasEnded(), !row.isSupported);
        if (!row.isSupported)
            expectUnsupported(wizard, "");
    }
}

TEST(MainWindowController, TellsWhatIsWrongWithAPackageThatSuitsNoSystem)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    Wizard wizard;
    wizard.setup.packageProblem = "The folder holds none.";
    wizard.noPackage().open();
    expectUnsupported(wizard, "VYM_UnSupportOS_Package");
    const std::filesystem::directory_iterator log(state.path() / "vymkit");
    ASSERT_NE(log, std::filesystem::directory_iterator());
    EXPECT_THAT(readFile(log->path()), testing::StartsWith("program: vymkit 1.2.3\n"));
    EXPECT_THAT(readFile(log->path()), testing::HasSubstr("\npackage: /"));
    EXPECT_THAT(readFile(log->path()), testing::EndsWith("problem: The folder holds none.\n"));
}

TEST(MainWindowController, LeavesNoLogOfAGoodPackageThatIsNotForThisSystem)
{
    const TempFolder state;
    qputenv("XDG_STATE_HOME", state.path().c_str());
    Wizard wizard;
    wizard.description({"PORTNO 1"}).open();
    expectUnsupported(wizard, "");
    EXPECT_TRUE(std::filesystem::is_empty(state.path()));
}

TEST(MainWindowController, ShowsTheHintOnTheDownloadModeOnlyWhereItIsNeeded)
{
    for (const auto* answer : {"YES", "NO", "BOTH", ""}) {
        SCOPED_TRACE(answer);
        Wizard wizard;
        wizard.description({"PLATFORMVERSION MACOS=0", std::string("NEEDENTEROPERATION ") + answer})
            .open();
        const bool isNeeded = std::string_view(answer) == "YES";
        EXPECT_EQ(wizard.text("_updatePrepModeTxt"), isNeeded ? "Preference_DownLoadMode" : "");
    }
}

TEST(MainWindowController, IsDressedAnewWhenTheDesktopsFontOrColoursChange)
{
    Wizard wizard;
    wizard.open();
    const auto& title = wizard.find<QLabel>("_selectDeviceTitle");
    const auto before = title.font().pointSizeF();
    const auto former = QApplication::font();
    auto larger = former;
    larger.setPointSizeF(former.pointSizeF() * 2);
    QApplication::setFont(larger);
    QCoreApplication::processEvents();
    EXPECT_NEAR(title.font().pointSizeF(), before * 2, 0.1);
    QApplication::setFont(former);
    QCoreApplication::processEvents();
    EXPECT_NEAR(title.font().pointSizeF(), before, 0.1);
}
