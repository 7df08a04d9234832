// SPDX-License-Identifier: MIT
#include "UI/Widgets/ParagraphLabel.h"

#include <QAccessible>
#include <gtest/gtest.h>

namespace {

int leftmostInk(ParagraphLabel& text)
{
    text.resize(400, text.heightForWidth(400));
    const auto image = text.grab().toImage();
    const auto ground = image.pixelColor(0, 0);
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixelColor(x, y) != ground)
                return x;
    return image.width();
}

} // namespace

TEST(ParagraphLabel, IsTallerWhereItIsNarrower)
{
    ParagraphLabel text;
    text.setText("• One line of words that goes on for a while\n• Another one");
    EXPECT_GT(text.heightForWidth(80), text.heightForWidth(800));
    EXPECT_LT(text.minimumSizeHint().width(), text.sizeHint().width());
}

TEST(ParagraphLabel, HangsTheTextOfABulletBesideIt)
{
    ParagraphLabel hanging;
    hanging.setText("• " + QString(40, u'm').replace("mm", "m "));
    ParagraphLabel plain;
    plain.setText("m " + QString(40, u'm').replace("mm", "m "));
    const int width = hanging.fontMetrics().horizontalAdvance("m m m m m m ");
    EXPECT_GE(hanging.heightForWidth(width), plain.heightForWidth(width));
    // The first column of the second line stays empty.
    hanging.resize(width, hanging.heightForWidth(width));
    const auto image = hanging.grab().toImage();
    const auto ground = image.pixelColor(image.width() - 1, image.height() - 1);
    for (int y = image.height() / 2; y < image.height(); ++y)
        EXPECT_EQ(image.pixelColor(1, y), ground) << y;
}

// In a right-to-left layout the bullets are on the right, whatever the text's own direction.
TEST(ParagraphLabel, ShowsItsBulletsOnTheRightWhereTheLayoutBeginsThere)
{
    for (const auto* written : {"word", "\u05d0\u05d1"}) {
        SCOPED_TRACE(written);
        const auto words = QString::fromUtf8(written);
        ParagraphLabel text;
        text.setLayoutDirection(Qt::RightToLeft);
        text.setText(words);
        const int alone = leftmostInk(text);
        text.setText("• " + words);
        const int beside = leftmostInk(text); // the bullet takes room on the right
        EXPECT_NEAR(alone - beside, text.fontMetrics().horizontalAdvance("• "), 2);
    }
}

TEST(ParagraphLabel, StaysALabelWithItsText)
{
    ParagraphLabel text;
    text.setText("• <b>One</b>\n• Two");
    auto* seen = QAccessible::queryAccessibleInterface(&text);
    EXPECT_EQ(seen->role(), QAccessible::StaticText);
    EXPECT_EQ(seen->text(QAccessible::Name), "• <b>One</b>\n• Two");
}

TEST(ParagraphLabel, TakesTheColourOfItsPalette)
{
    ParagraphLabel text;
    text.setText("mmm");
    text.resize(text.sizeHint());
    const auto dark = text.grab().toImage();
    QPalette palette = text.palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    text.setPalette(palette);
    EXPECT_NE(text.grab().toImage(), dark);
}
