// SPDX-License-Identifier: MIT
#include "UI/Widgets/AlertBox.h"
#include "tests/UI/Waits.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTextEdit>
#include <gtest/gtest.h>

namespace {

// On the 800 x 800 of the screen of these tests, this leaves as little room as 800 x 480 at 150 %
// with a usual font, and as 24 points on 1280 x 800.
constexpr double kLargeFont = 26;

Alert longMessage()
{
    Alert told;
    told.title = "The printer did not answer as expected";
    told.remarks = "Main controller (1/2): sent, and confirmed by the printer.\n"
                   "Print engine (2/2): sent only in part.";
    told.message = "The printer gave no answer, or one that this program could not use, and the "
                   "update was stopped.";
    told.advice = "Do not switch the printer off: wait until its display shows that it is ready.";
    told.details = "Package: /a/very/long/path/" + std::string(200, 'x');
    told.detailsButton = "&Details";
    told.style = AlertStyle::critical;
    told.defaultButton = "OK";
    return told;
}

class LargeFont {
public:
    LargeFont()
    {
        auto large = m_former;
        large.setPointSizeF(kLargeFont);
        QApplication::setFont(large);
    }
    ~LargeFont() { QApplication::setFont(m_former); }
    LargeFont(const LargeFont&) = delete;
    LargeFont& operator=(const LargeFont&) = delete;

private:
    QFont m_former = QApplication::font();
};

QRect onScreen(const QWidget& widget)
{
    return {widget.mapToGlobal(QPoint()), widget.size()};
}

QLabel& label(const AlertBox& box, const QString& beginning)
{
    for (auto* each : box.findChildren<QLabel*>()) {
        if (each->text().startsWith(beginning))
            return *each;
    }
    throw std::runtime_error("no such text");
}

QPushButton& button(const AlertBox& box, const QString& text)
{
    for (auto* each : box.findChildren<QPushButton*>()) {
        if (each->text() == text)
            return *each;
    }
    throw std::runtime_error("no such button");
}

void show(AlertBox& box)
{
    box.show();
    ASSERT_TRUE(becomesActive(box));
    settle();
}

void expectOnScreen(const AlertBox& box)
{
    const auto screen = box.screen()->availableGeometry();
    EXPECT_TRUE(screen.contains(onScreen(box)));
    auto& ok = button(box, "OK");
    EXPECT_TRUE(onScreen(box).contains(onScreen(ok)));
    EXPECT_GE(ok.height(), ok.sizeHint().height());
    const auto& area = *box.findChild<QScrollArea*>();
    EXPECT_FALSE(onScreen(area).intersects(onScreen(ok)));
}

} // namespace

TEST(AlertBox, ShowsTheFactsBeforeTheMessageAndTheNextStepLast)
{
    AlertBox box(longMessage(), nullptr);
    show(box);
    EXPECT_EQ(box.informativeText(),
              QString::fromStdString(longMessage().message + "\n\n" + longMessage().advice));
    const auto top = [&box](const char* text) { return onScreen(label(box, text)).top(); };
    EXPECT_LT(top("The printer did not"), top("Main controller"));
    EXPECT_LT(top("Main controller"), top("The printer gave"));
    EXPECT_GT(label(box, "The printer did not").font().pointSizeF(),
              label(box, "The printer gave").font().pointSizeF());
}

TEST(AlertBox, CutsNothingAndNeedsNoScrollBarIfThereIsRoom)
{
    AlertBox box(longMessage(), nullptr);
    show(box);
    EXPECT_EQ(box.findChild<QScrollArea*>()->verticalScrollBar()->maximum(), 0);
    for (const auto* each : box.findChildren<QLabel*>()) {
        if (each->isVisible() && each->hasHeightForWidth()) {
            EXPECT_GE(each->height(), each->heightForWidth(each->width()))
                << each->text().toStdString();
        }
    }
    expectOnScreen(box);
}

TEST(AlertBox, KeepsItsButtonsOnASmallScreenAndScrollsItsTexts)
{
    const LargeFont large;
    AlertBox box(longMessage(), nullptr);
    show(box);
    expectOnScreen(box);
    button(box, "&Details").click();
    settle();
    expectOnScreen(box);
    const auto& area = *box.findChild<QScrollArea*>();
    EXPECT_GT(area.verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(area.horizontalScrollBar()->maximum(), 0);
}

TEST(AlertBox, ScrollsWithTheKeysForPagesFromItsButton)
{
    const LargeFont large;
    auto told = longMessage();
    told.message = QString("A sentence. ").repeated(80).toStdString();
    AlertBox box(told, nullptr);
    show(box);
    const auto* bar = box.findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_GT(bar->maximum(), 0);
    QTest::keyClick(&button(box, "OK"), Qt::Key_PageDown);
    EXPECT_GT(bar->value(), 0);
    QTest::keyClick(&button(box, "OK"), Qt::Key_PageUp);
    EXPECT_EQ(bar->value(), 0);
    EXPECT_TRUE(box.isVisible());
}

TEST(AlertBox, FoldsTheDetailsUntilTheirButtonIsPressed)
{
    AlertBox box(longMessage(), nullptr);
    show(box);
    auto& fold = button(box, "&Details");
    const auto& details = *box.findChild<QTextEdit*>();
    EXPECT_FALSE(details.isVisible());
    EXPECT_TRUE(button(box, "OK").hasFocus());
    const int height = box.height();
    EXPECT_EQ(fold.shortcut(), QKeySequence(Qt::ALT | Qt::Key_D));
    fold.click();
    EXPECT_TRUE(details.isVisible());
    EXPECT_GT(box.height(), height);
    EXPECT_GE(details.viewport()->height(), qRound(details.document()->size().height()));
    fold.setFocus();
    QTest::keyClick(&fold, Qt::Key_Space);
    EXPECT_FALSE(details.isVisible());
    EXPECT_EQ(box.height(), height);
    QTest::keyClick(&fold, Qt::Key_Return); // opens it, and does not leave the message
    EXPECT_TRUE(details.isVisible());
    EXPECT_TRUE(box.isVisible());
}

TEST(AlertBox, LeadsTheTabKeyFromTheDetailsToTheButton)
{
    AlertBox box(longMessage(), nullptr);
    show(box);
    auto& fold = button(box, "&Details");
    fold.click();
    fold.setFocus();
    QTest::keyClick(&fold, Qt::Key_Tab);
    EXPECT_TRUE(box.findChild<QTextEdit*>()->hasFocus());
    QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(button(box, "OK").hasFocus());
    QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(fold.hasFocus());
}

TEST(AlertBox, HasNoFoldWithoutDetails)
{
    auto told = longMessage();
    told.details.clear();
    const AlertBox box(told, nullptr);
    EXPECT_EQ(box.findChild<QTextEdit*>(), nullptr);
    told = longMessage();
    told.detailsButton.clear();
    const AlertBox open(told, nullptr);
    EXPECT_EQ(open.findChild<QTextEdit*>(), nullptr);
    EXPECT_TRUE(open.informativeText().endsWith(QString::fromStdString(told.details)));
}

TEST(AlertBox, FitsAgainAfterTheFontHasChanged)
{
    AlertBox box(longMessage(), nullptr);
    show(box);
    const auto before = box.size();
    {
        const LargeFont large;
        settle();
        EXPECT_GT(box.width(), before.width());
        expectOnScreen(box);
    }
    settle();
    EXPECT_EQ(box.size(), before);
}

TEST(AlertBox, HasAnAnswerOfItsOwnForAnExtraButton)
{
    auto told = longMessage();
    told.extraButton = "Check";
    AlertBox box(told, nullptr);
    show(box);
    button(box, "Check").click();
    EXPECT_EQ(box.answer(), alert::kExtra);
    told.queryButton = "Query";
    AlertBox other(told, nullptr);
    show(other);
    button(other, "Query").click();
    EXPECT_EQ(other.answer(), alert::kQuery);
}
