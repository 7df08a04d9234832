#include "UI/MainWindowControllerText.h"

#include <QAccessible>
#include <gtest/gtest.h>

TEST(MainWindowControllerText, IsTallerWhereItIsNarrower)
{
    MainWindowControllerText text;
    text.setText("• One line of words that goes on for a while\n• Another one");
    EXPECT_GT(text.heightForWidth(80), text.heightForWidth(800));
    EXPECT_LT(text.minimumSizeHint().width(), text.sizeHint().width());
}

TEST(MainWindowControllerText, HangsWhatFollowsABulletBesideIt)
{
    MainWindowControllerText hanging;
    hanging.setText("• " + QString(40, u'm').replace("mm", "m "));
    MainWindowControllerText plain;
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

TEST(MainWindowControllerText, StaysALabelWithItsText)
{
    MainWindowControllerText text;
    text.setText("• <b>One</b>\n• Two");
    auto* seen = QAccessible::queryAccessibleInterface(&text);
    EXPECT_EQ(seen->role(), QAccessible::StaticText);
    EXPECT_EQ(seen->text(QAccessible::Name), "• <b>One</b>\n• Two");
}

TEST(MainWindowControllerText, TakesTheColourOfItsPalette)
{
    MainWindowControllerText text;
    text.setText("mmm");
    text.resize(text.sizeHint());
    const auto dark = text.grab().toImage();
    QPalette palette = text.palette();
    palette.setColor(QPalette::WindowText, Qt::red);
    text.setPalette(palette);
    EXPECT_NE(text.grab().toImage(), dark);
}
