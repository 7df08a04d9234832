#include "UI/MainWindowControllerLook.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QLayout>
#include <QStyle>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kMutedShare = 0.3; // of the background in lesser text: contrast stays above 4.5
constexpr double kLineShare = 0.75; // of the background in lines
constexpr int kColumnCharacters = 84; // longer lines are hard to read
constexpr int kPageMargins = 2; // in margins of the style

struct TextLook {
    const char* name;
    double size; // in sizes of the user's font
    bool isBold;
    bool isMuted;
};
constexpr std::array<TextLook, 5> kTextLooks = {{
    {"hero", 1.7, true, false},
    {"title", 1.3, true, false},
    {"section", 1.0, true, false},
    {"caption", 1.0, false, true},
    {"comment", 1.0, false, true},
}};

QColor mixed(const QColor& text, const QColor& ground, double share)
{
    const auto mix = [share](float a, float b) {
        return static_cast<float>(a * (1 - share) + b * share);
    };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}

void dressText(QWidget& text, const TextLook& look)
{
    auto font = QApplication::font(&text);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * look.size);
    font.setWeight(look.isBold ? QFont::DemiBold : QFont::Normal);
    text.setFont(font);
    QPalette palette;
    if (look.isMuted)
        palette.setColor(QPalette::Active, QPalette::WindowText,
                         mutedColour(QApplication::palette()));
    if (look.isMuted)
        palette.setColor(QPalette::Inactive, QPalette::WindowText,
                         mutedColour(QApplication::palette()));
    text.setPalette(palette);
}

int styleMargin(const QWidget& widget)
{
    return widget.style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &widget);
}

void dressColumn(QWidget& column)
{
    const int margin = styleMargin(column) * kPageMargins;
    column.layout()->setContentsMargins(margin, margin, margin, margin);
    const auto letters = QFontMetrics(QApplication::font()).averageCharWidth() * kColumnCharacters;
    column.setMaximumWidth(letters + 2 * margin);
}

void dressRow(QWidget& row)
{
    const int margin = styleMargin(row) * kPageMargins;
    const int above = styleMargin(row);
    if (row.layout() != nullptr)
        row.layout()->setContentsMargins(margin, above, margin, above);
    else
        row.setContentsMargins(margin, above, margin, above);
}

// What belongs to a radio button begins where its text does.
void dressIndent(QWidget& indented)
{
    const auto* style = indented.style();
    const int indent = style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, &indented)
        + style->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, &indented);
    indented.layout()->setContentsMargins(0, 0, 0, 0);
    const bool fromRight = indented.layoutDirection() == Qt::RightToLeft;
    indented.layout()->setContentsMargins(fromRight ? 0 : indent, 0, fromRight ? indent : 0, 0);
}

void dress(QWidget& widget)
{
    const auto look = widget.property("look").toString();
    if (look == QLatin1String("column"))
        dressColumn(widget);
    else if (look == QLatin1String("row"))
        dressRow(widget);
    else if (look == QLatin1String("indent"))
        dressIndent(widget);
    const auto* text = std::find_if(kTextLooks.begin(), kTextLooks.end(), [&](const auto& each) {
        return look == QLatin1String(each.name);
    });
    if (text != kTextLooks.end())
        dressText(widget, *text);
}

} // namespace

void dressWindow(QWidget& window)
{
    for (auto* widget : window.findChildren<QWidget*>())
        dress(*widget);
}

bool changesLook(const QEvent& event)
{
    constexpr std::array kChanges = {QEvent::ApplicationFontChange,
                                     QEvent::ApplicationPaletteChange,
                                     QEvent::PaletteChange,
                                     QEvent::FontChange,
                                     QEvent::StyleChange,
                                     QEvent::LayoutDirectionChange,
                                     QEvent::ThemeChange};
    return std::find(kChanges.begin(), kChanges.end(), event.type()) != kChanges.end();
}

QColor mutedColour(const QPalette& palette)
{
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), kMutedShare);
}

QColor lineColour(const QPalette& palette)
{
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), kLineShare);
}

QIcon namedIcon(const QString& themeName, const QString& ownName)
{
    return QIcon::fromTheme(themeName, QIcon(QStringLiteral(":/icons/%1.svg").arg(ownName)));
}
