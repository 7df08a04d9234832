// SPDX-License-Identifier: MIT
#include "UI/Widgets/Look.h"

#include <QEvent>
#include <QStyle>
#include <cmath>
#include <gtest/gtest.h>

namespace {

// The contrast by the formula of the accessibility guidelines.
double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

double contrast(const QColor& one, const QColor& other)
{
    const auto brighter = std::max(luminance(one), luminance(other));
    const auto darker = std::min(luminance(one), luminance(other));
    return (brighter + 0.05) / (darker + 0.05);
}

QPalette palette(const QColor& text, const QColor& window)
{
    QPalette made;
    made.setColor(QPalette::WindowText, text);
    made.setColor(QPalette::Window, window);
    return made;
}

} // namespace

TEST(Look, KeepsSecondaryTextReadableOnLightAndOnDark)
{
    for (const auto& each :
         {palette(Qt::black, QColor(239, 239, 239)), palette(Qt::black, Qt::white),
          palette(Qt::white, QColor(42, 42, 42)), palette(Qt::white, Qt::black)}) {
        EXPECT_GE(contrast(mutedColour(each), each.color(QPalette::Window)), 4.5);
        EXPECT_GT(contrast(each.color(QPalette::WindowText), each.color(QPalette::Window)),
                  contrast(mutedColour(each), each.color(QPalette::Window)));
        EXPECT_GT(contrast(lineColour(each), each.color(QPalette::Window)), 1.2);
    }
}

TEST(Look, TakesTheIconOfTheThemeOrItsOwn)
{
    EXPECT_FALSE(namedIcon("no-theme-has-this", "note").isNull());
    EXPECT_FALSE(namedIcon("no-theme-has-this", "caut").pixmap(32, 32).isNull());
}

TEST(Look, LetsALabelWithoutAPictureTakeNoRoom)
{
    QWidget parent;
    QLabel label(&parent);
    showPicture(label, QIcon(), 1);
    EXPECT_TRUE(label.isHidden());
    showPicture(label, namedIcon("no-theme-has-this", "note"), 2);
    EXPECT_FALSE(label.isHidden());
    const auto edge = label.style()->pixelMetric(QStyle::PM_MessageBoxIconSize) * 2;
    EXPECT_EQ(label.pixmap().deviceIndependentSize(), QSizeF(edge, edge));
}

TEST(Look, DrawsSignsInTheColourOfTheTextAndOfTheSelection)
{
    QWidget where;
    where.setPalette(palette(Qt::white, Qt::black));
    const auto icon = signIcon("usb", where, 4);
    const auto inkOf = [&icon](QIcon::Mode mode) {
        const auto image = icon.pixmap(icon.availableSizes().front(), mode).toImage();
        QColor darkest(Qt::transparent);
        for (int x = 0; x < image.width(); ++x) {
            for (int y = 0; y < image.height(); ++y)
                if (image.pixelColor(x, y).alpha() > darkest.alpha())
                    darkest = image.pixelColor(x, y);
        }
        return darkest.rgb();
    };
    EXPECT_EQ(QColor(inkOf(QIcon::Normal)).lightness(), mutedColour(where.palette()).lightness());
    EXPECT_EQ(QColor(inkOf(QIcon::Selected)).lightness(),
              where.palette().color(QPalette::HighlightedText).lightness());
}

TEST(Look, KnowsWhichEventsChangeIt)
{
    EXPECT_TRUE(changesLook(QEvent(QEvent::FontChange)));
    EXPECT_TRUE(changesLook(QEvent(QEvent::ApplicationPaletteChange)));
    EXPECT_FALSE(changesLook(QEvent(QEvent::Paint)));
}
