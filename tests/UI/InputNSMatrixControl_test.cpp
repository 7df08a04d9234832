// SPDX-License-Identifier: MIT
#include "UI/InputNSMatrixControl.h"
#include "tests/UI/Waits.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <gmock/gmock.h>

namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A window with the control between two buttons, and all ways of getting a text into a cell.
class InputNSMatrixControlTest : public ::testing::Test {
protected:
    InputNSMatrixControlTest()
    {
        auto* column = new QVBoxLayout(&window);
        column->addWidget(&before);
        column->addWidget(&control);
        control.setInputMode(InputNSMatrixControl::kAddressMode);
        window.show();
        EXPECT_TRUE(becomesActive(window));
        before.setFocus();
        chosen.clear();
    }

    QLineEdit& cell(int column) { return *control.cellAtColumn(column); }
    QString text(int column) { return cell(column).text(); }
    int focus()
    {
        for (int i = 0; i < control.numberOfColumns(); ++i) {
            if (cell(i).hasFocus())
                return i;
        }
        return -1;
    }
    void edit(int column, const char* value)
    {
        control.setCellValue({});
        cell(column).setText(value);
        cell(column).setFocus();
        cell(column).end(false);
    }

    static void type(QLineEdit& cell, const QString& keys)
    {
        for (const auto c : keys) {
            const auto key = c < u'\x80' ? c.unicode() : 0; // other characters have no key
            QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, c);
            QApplication::sendEvent(&cell, &press);
        }
    }
    static void paste(QLineEdit& cell, const QString& words)
    {
        QApplication::clipboard()->setText(words);
        QTest::keySequence(&cell, QKeySequence::Paste);
    }
    static Qt::DropAction drop(QLineEdit& cell, const QString& words)
    {
        QMimeData data;
        data.setText(words);
        const QPointF place(cell.width() - 2, cell.height() / 2.0); // after the present text
        QDragEnterEvent enter(place.toPoint(), Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(&cell, &enter);
        // With the Shift key, the drag moves the text.
        QDropEvent event(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton,
                         Qt::ShiftModifier);
        EXPECT_EQ(event.proposedAction(), Qt::MoveAction);
        QApplication::sendEvent(&cell, &event);
        return event.dropAction();
    }
    static void commit(QLineEdit& cell, const QString& words)
    {
        QInputMethodEvent event;
        event.setCommitString(words);
        QApplication::sendEvent(&cell, &event);
    }

    QWidget window;
    QPushButton before;
    InputNSMatrixControl control;
    QSignalSpy chosen{&control, &InputNSMatrixControl::VYMMatrixSelect};
    QSignalSpy beeps{&control, &InputNSMatrixControl::beeped};
};

TEST_F(InputNSMatrixControlTest, EveryWayIntoACellObeysTheSameRules)
{
    const struct {
        const char* why;
        const char* held;
        const char* given;
        const char* left;
        int beeps;
    } rows[] = {
        {"a digit into an empty cell", "", "7", "7", 0},
        {"leading zeros stay while typing", "0", "1", "01", 0},
        {"three digits", "12", "3", "123", 0},
        {"the largest number", "25", "5", "255", 0},
        {"beyond the largest number", "25", "6", "255", 0},
        {"far beyond it", "99", "9", "255", 0},
        {"a fourth digit", "123", "4", "123", 1},
        {"a letter", "1", "a", "1", 0},
        {"a sign", "", "-", "", 0},
        {"a dot into an empty cell", "", ".", "", 0},
        {"a letter where there is no room", "123", "a", "123", 1},
        {"a wide digit, two columns wide", "", "\uFF11", "", 0},
        {"a wide digit where there is room for one column", "12", "\uFF11", "12", 1},
    };
    const struct {
        const char* name;
        std::function<void(QLineEdit&, const QString&)> take;
    } ways[] = {{"typed", type}, {"pasted", paste}, {"dropped", drop}, {"committed", commit}};
    for (const auto& row : rows) {
        for (const auto& way : ways) {
            SCOPED_TRACE(std::string(row.why) + ", " + way.name);
            edit(1, row.held);
            beeps.clear();
            way.take(cell(1), QString::fromUtf8(row.given));
            EXPECT_EQ(text(1).toStdString(), row.left);
            EXPECT_EQ(beeps.count(), row.beeps);
        }
    }
}

TEST_F(InputNSMatrixControlTest, SeveralCharactersAtOnceAreTakenOrRefusedAsAWhole)
{
    const struct {
        const char* why;
        const char* given;
        const char* left;
        int beeps;
    } rows[] = {
        {"a whole number", "192", "192", 0},
        {"a number that is too large", "999", "255", 0},
        {"one letter among digits", "1a2", "", 0},
        {"more than three digits", "1234", "", 1},
        {"a whole address", "192.168.1.1", "", 1},
        {"nothing", "", "", 0},
        {"a line end, which is two columns wide", "1\n", "", 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        for (const auto& take : {paste, commit}) {
            edit(0, "");
            beeps.clear();
            take(cell(0), row.given);
            EXPECT_EQ(text(0).toStdString(), row.left);
            EXPECT_EQ(beeps.count(), row.beeps);
        }
    }
}

TEST_F(InputNSMatrixControlTest, WhatReplacesASelectionCountsWithoutIt)
{
    for (const auto& take : {type, paste, commit}) {
        edit(3, "123");
        cell(3).selectAll();
        take(cell(3), "45");
        EXPECT_EQ(text(3), "45");
    }
    EXPECT_THAT(beeps, IsEmpty());
}

TEST_F(InputNSMatrixControlTest, ADroppedTextStaysAtItsSource)
{
    edit(0, "12");
    EXPECT_EQ(drop(cell(0), "x"), Qt::IgnoreAction);
    EXPECT_EQ(drop(cell(0), "3"), Qt::CopyAction);
    EXPECT_EQ(text(0), "123");
}

TEST_F(InputNSMatrixControlTest, ThreeDigitsLeadToTheNextCellButNotBeyondTheLast)
{
    for (const auto& take : {type, paste, commit}) {
        edit(0, "");
        cell(1).setText("77");
        take(cell(0), "123");
        EXPECT_EQ(focus(), 1);
        EXPECT_EQ(cell(1).selectedText(), "77");
        edit(3, "");
        take(cell(3), "123");
        EXPECT_EQ(focus(), 3);
    }
    edit(2, "12");
    drop(cell(2), "3");
    EXPECT_EQ(focus(), 3);
}

TEST_F(InputNSMatrixControlTest, ANumberThatWasCutToTheLargestLeadsOnToo)
{
    edit(0, "");
    type(cell(0), "999");
    EXPECT_EQ(text(0), "255");
    EXPECT_EQ(focus(), 1);
}

TEST_F(InputNSMatrixControlTest, TwoDigitsAndADeletionStayInTheirCell)
{
    edit(0, "");
    type(cell(0), "99");
    EXPECT_EQ(focus(), 0);
    edit(0, "123");
    QTest::keyClick(&cell(0), Qt::Key_Backspace);
    EXPECT_EQ(text(0), "12");
    EXPECT_EQ(focus(), 0);
}

TEST_F(InputNSMatrixControlTest, UndoGoesBackButNotBeyondANumberThatWasCut)
{
    edit(0, "");
    type(cell(0), "12");
    QTest::keySequence(&cell(0), QKeySequence::Undo);
    EXPECT_EQ(text(0), "");
    QTest::keySequence(&cell(0), QKeySequence::Redo);
    EXPECT_EQ(text(0), "12");
    type(cell(0), "999");
    edit(0, "");
    type(cell(0), "999");
    EXPECT_FALSE(cell(0).isUndoAvailable());
    QTest::keySequence(&cell(0), QKeySequence::Undo);
    EXPECT_EQ(text(0), "255");
}

TEST_F(InputNSMatrixControlTest, UndoRestoresNoTextThatMayNotBeTyped)
{
    control.setCellValue({"ab"});
    cell(0).setFocus();
    cell(0).selectAll();
    QTest::keyClick(&cell(0), Qt::Key_Delete);
    QTest::keySequence(&cell(0), QKeySequence::Undo);
    EXPECT_EQ(text(0), "");
    type(cell(0), "x1");
    EXPECT_EQ(text(0), "1");
}

TEST_F(InputNSMatrixControlTest, ATextFromTheProgramIsNotCheckedButLaterTypingIs)
{
    control.setCellValue({"12345", "ab"});
    EXPECT_EQ(text(0), "12345");
    EXPECT_EQ(text(1), "ab");
    cell(1).setFocus();
    type(cell(1), "x");
    EXPECT_EQ(text(1), "ab");
    type(cell(1), "1");
    EXPECT_EQ(text(1), "ab1");
    cell(0).setFocus();
    type(cell(0), "6");
    EXPECT_EQ(text(0), "12345");
    EXPECT_EQ(beeps.count(), 1);
    QTest::keyClick(&cell(0), Qt::Key_Backspace); // shorter, but still too long
    EXPECT_EQ(text(0), "12345");
    EXPECT_EQ(beeps.count(), 2);
}

TEST_F(InputNSMatrixControlTest, OtherModesTakeAnyCharacterAndAnyNumber)
{
    control.setInputMode(1);
    edit(0, "");
    type(cell(0), "a.");
    paste(cell(0), "9");
    EXPECT_EQ(text(0), "a.9");
    edit(1, "");
    type(cell(1), "999");
    EXPECT_EQ(text(1), "999");
    EXPECT_THAT(control.cellValueArray(), ElementsAre("0", "0", "0", "0"));
}

TEST(InputNSMatrixControl, BeforeAModeIsSetItHasNoCellsThatCountAndRoomFor255Columns)
{
    InputNSMatrixControl control;
    EXPECT_THAT(control.cellValueArray(), IsEmpty());
    control.setInputMode(1);
    EXPECT_THAT(control.cellValueArray(), IsEmpty());
    control.cellAtColumn(0)->insert(QString(256, u'x'));
    EXPECT_EQ(control.cellAtColumn(0)->text().size(), 0);
    control.cellAtColumn(0)->insert(QString(255, u'x'));
    EXPECT_EQ(control.cellAtColumn(0)->text().size(), 255);
}

TEST_F(InputNSMatrixControlTest, ValuesAreWrittenInDecimal)
{
    const struct {
        const char* why;
        const char* held;
        const char* value;
    } rows[] = {
        {"nothing", "", "0"},
        {"a plain number", "10", "10"},
        {"leading zeros", "010", "10"},
        {"zeros only", "000", "0"},
        {"no number", "ab", "0"},
        {"digits, then others", "1a", "1"},
        {"a sign", "-5", "-5"},
        {"a space first", " 7", "7"},
        {"too large for a number", "99999999999", "2147483647"},
        {"too small for one", "-99999999999", "-2147483648"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        control.setCellValue({row.held});
        EXPECT_THAT(control.cellValueArray(), ElementsAre(row.value, "0", "0", "0"));
    }
}

TEST_F(InputNSMatrixControlTest, ValuesFillAsManyCellsAsThereAreAndLeaveTheRestAlone)
{
    control.setCellValue({"1", "2", "3", "4", "5"});
    control.setCellValue({"9"});
    EXPECT_THAT(control.cellValueArray(), ElementsAre("9", "2", "3", "4"));
    control.setCellValue({});
    EXPECT_THAT(control.cellValueArray(), ElementsAre("9", "2", "3", "4"));
}

TEST_F(InputNSMatrixControlTest, TakingTheFocusIsAnnouncedOnceAndMovingInsideIsNot)
{
    QTest::mouseClick(&cell(2), Qt::LeftButton);
    ASSERT_EQ(chosen.count(), 1);
    EXPECT_EQ(chosen.at(0).at(0).value<InputNSMatrixControl*>(), &control);
    QTest::mouseClick(&cell(1), Qt::LeftButton);
    cell(3).setFocus();
    EXPECT_EQ(chosen.count(), 1);
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_EQ(chosen.count(), 2);
    before.setFocus();
    EXPECT_TRUE(control.becomeFirstResponder());
    EXPECT_EQ(chosen.count(), 3);
    EXPECT_EQ(focus(), 0);
}

TEST_F(InputNSMatrixControlTest, AWindowThatComesBackAnnouncesNothing)
{
    cell(1).setFocus();
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(becomesActive(other));
    window.activateWindow();
    ASSERT_TRUE(becomesActive(window));
    EXPECT_EQ(chosen.count(), 1);
}

TEST_F(InputNSMatrixControlTest, SelectingItsTextTakesTheFirstCellOrTheFocusedOne)
{
    control.setCellValue({"1", "2", "3", "4"});
    control.selectText();
    EXPECT_EQ(focus(), 0);
    EXPECT_EQ(cell(0).selectedText(), "1");
    cell(2).setFocus();
    control.selectText();
    EXPECT_EQ(focus(), 2);
    EXPECT_EQ(cell(2).selectedText(), "3");
    control.selectTextAtColumn(3);
    EXPECT_EQ(cell(3).selectedText(), "4");
    control.selectTextAtColumn(4);
    control.selectTextAtColumn(-1);
    EXPECT_EQ(focus(), 3);
}

TEST_F(InputNSMatrixControlTest, AWholeAddressIsTypedWithItsDots)
{
    for (const auto* address : {"127.0.0.1", "10.20.30.40", "192.168.100.200", "1.2.3.4"}) {
        SCOPED_TRACE(address);
        control.setCellValue({"", "", "", ""});
        control.selectTextAtColumn(0);
        for (const auto c : QString(address))
            type(*qobject_cast<QLineEdit*>(QApplication::focusWidget()), c);
        QStringList values;
        for (const auto& value : control.cellValueArray())
            values << QString::fromStdString(value);
        EXPECT_EQ(values.join(".").toStdString(), address);
    }
    EXPECT_THAT(beeps, IsEmpty());
}

TEST_F(InputNSMatrixControlTest, ADotInAnEmptyOrWhollySelectedCellKeepsTheFocus)
{
    cell(1).setFocus();
    type(cell(1), ".");
    EXPECT_EQ(focus(), 1);
    edit(1, "12");
    cell(1).selectAll();
    type(cell(1), ".");
    EXPECT_EQ(focus(), 1);
    EXPECT_EQ(text(1), "12");
    edit(3, "12");
    type(cell(3), ".");
    EXPECT_EQ(focus(), 3);
}

TEST_F(InputNSMatrixControlTest, KeysWithoutUseInACellLeadToItsNeighbour)
{
    control.setCellValue({"1", "", "34", ""});
    cell(1).setFocus();
    QTest::keyClick(&cell(1), Qt::Key_Backspace);
    EXPECT_EQ(focus(), 0);
    EXPECT_EQ(text(0), "1");
    QTest::keyClick(&cell(0), Qt::Key_Right);
    EXPECT_EQ(focus(), 1);
    QTest::keyClick(&cell(1), Qt::Key_Right);
    EXPECT_EQ(focus(), 2);
    EXPECT_EQ(cell(2).cursorPosition(), 0);
    QTest::keyClick(&cell(2), Qt::Key_Right);
    EXPECT_EQ(focus(), 2);
    QTest::keyClick(&cell(2), Qt::Key_Left);
    QTest::keyClick(&cell(2), Qt::Key_Left);
    EXPECT_EQ(focus(), 1);
    control.selectTextAtColumn(0);
    cell(0).setCursorPosition(0);
    QTest::keyClick(&cell(0), Qt::Key_Left);
    EXPECT_EQ(focus(), 0);
}

TEST_F(InputNSMatrixControlTest, TheTabKeyReachesItOnlyWhileItIsInTheKeyboardOrder)
{
    control.setInKeyboardOrder(false);
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_EQ(focus(), -1);
    QTest::mouseClick(&cell(0), Qt::LeftButton);
    EXPECT_EQ(focus(), 0);
    control.setInKeyboardOrder(true);
    before.setFocus();
    QTest::keyClick(&before, Qt::Key_Tab);
    EXPECT_EQ(focus(), 0);
}

TEST_F(InputNSMatrixControlTest, AnAddressReadsFromLeftToRightEverywhere)
{
    window.setLayoutDirection(Qt::RightToLeft);
    settle();
    EXPECT_EQ(cell(0).layoutDirection(), Qt::LeftToRight);
    EXPECT_LT(cell(0).x(), cell(1).x());
    EXPECT_LT(cell(2).x(), cell(3).x());
}

TEST_F(InputNSMatrixControlTest, AScreenReaderReadsOutWhichPartACellIs)
{
    control.setCellNames({"Address, part 1 of 4", "Address, part 2 of 4", "3", "4", "5"});
    EXPECT_EQ(cell(0).accessibleName(), "Address, part 1 of 4");
    EXPECT_EQ(cell(1).accessibleName(), "Address, part 2 of 4");
}

TEST_F(InputNSMatrixControlTest, ItsSizeFollowsTheFont)
{
    const auto small = control.sizeHint();
    auto font = control.font();
    font.setPointSizeF(font.pointSizeF() * 2);
    control.setFont(font);
    settle();
    EXPECT_GT(control.sizeHint().width(), small.width() * 3 / 2);
    EXPECT_GT(control.sizeHint().height(), small.height());
    EXPECT_GT(cell(0).width(), cell(0).fontMetrics().horizontalAdvance("255"));
}

} // namespace
