// SPDX-License-Identifier: MIT
#include "UI/Widgets/MessageBoxAlerts.h"
#include "tests/UI/Waits.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace {

Alert message()
{
    Alert told;
    told.title = "It is done";
    told.message = "Switch the printer off and on.";
    told.defaultButton = "OK";
    return told;
}

Alert question()
{
    Alert asked;
    asked.title = "Really?";
    asked.message = "Think about it.";
    asked.style = AlertStyle::critical;
    asked.defaultButton = "YES";
    asked.alternateButton = "NO";
    return asked;
}

const Alert kMessage = message();
const Alert kQuestion = question();

// Shows an alert and acts on its box once that is open.
int answer(const Alert& asked, const std::function<void(QMessageBox&)>& act)
{
    QTimer::singleShot(0, [&act] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        EXPECT_TRUE(becomesActive(*box));
        act(*box);
        if (box->isVisible()) {
            ADD_FAILURE() << "the box was not left";
            box->done(0);
        }
    });
    return MessageBoxAlerts().run(asked);
}

void press(QMessageBox& box, Qt::Key key)
{
    auto* focus = box.focusWidget();
    QTest::keyClick(focus != nullptr ? focus : &box, key);
}

void click(QMessageBox& box, const QString& text)
{
    for (auto* button : box.buttons()) {
        if (button->text() == text)
            button->click();
    }
}

TEST(MessageBoxAlerts, EachButtonHasItsAnswerAndLeavingHasAnother)
{
    using Act = std::function<void(QMessageBox&)>;
    const struct {
        const char* why;
        Alert asked;
        Act act;
        int answer;
    } rows[] = {
        {"the default button", kQuestion, [](auto& box) { click(box, "YES"); }, 1},
        {"the alternate button", kQuestion, [](auto& box) { click(box, "NO"); }, 0},
        {"Escape", kQuestion, [](auto& box) { press(box, Qt::Key_Escape); }, -1},
        {"the window's close button", kQuestion, [](auto& box) { box.close(); }, -1},
        {"Return", kQuestion, [](auto& box) { press(box, Qt::Key_Return); }, 1},
        {"the only button", kMessage, [](auto& box) { click(box, "OK"); }, 1},
        {"Return on the only button", kMessage, [](auto& box) { press(box, Qt::Key_Return); }, 1},
        {"Escape with one button", kMessage, [](auto& box) { press(box, Qt::Key_Escape); }, -1},
        {"closing with one button", kMessage, [](auto& box) { box.close(); }, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.why);
        EXPECT_EQ(answer(row.asked, row.act), row.answer);
    }
}

TEST(MessageBoxAlerts, ReturnPressesTheSafeButtonIfYesCannotBeUndone)
{
    auto risky = kQuestion;
    risky.returnKey = AlertReturn::pressesAlternate;
    EXPECT_EQ(answer(risky, [](auto& box) { press(box, Qt::Key_Return); }), alert::kAlternate);
    EXPECT_EQ(answer(risky, [](auto& box) { click(box, "YES"); }), alert::kDefault);
}

TEST(MessageBoxAlerts, ShowsTitleMessageDetailsAndStyle)
{
    auto asked = kMessage;
    asked.details = "the container ends early";
    answer(asked, [](auto& box) {
        EXPECT_EQ(box.text(), "It is done");
        EXPECT_EQ(box.windowTitle(), "It is done");
        EXPECT_EQ(box.informativeText(),
                  "Switch the printer off and on.\n\nthe container ends early");
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        EXPECT_EQ(box.buttons().size(), 1);
        box.close();
    });
    answer(kQuestion, [](auto& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.buttons().size(), 2);
        box.close();
    });
    asked.style = AlertStyle::critical;
    answer(asked, [](auto& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        box.close();
    });
}

TEST(MessageBoxAlerts, WordsFromOutsideNeverActAsMarkup)
{
    auto asked = kMessage;
    asked.title = "<h1>a</h1>";
    asked.message = "<img src='x'>";
    asked.details = "<b>b</b>";
    answer(asked, [](auto& box) {
        for (auto* label : box.template findChildren<QLabel*>())
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        box.close();
    });
}

} // namespace
