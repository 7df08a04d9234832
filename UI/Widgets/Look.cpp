// SPDX-License-Identifier: MIT
#include "UI/Widgets/Look.h"

#include "UI/Widgets/LetterWidth.h"

#include <QApplication>
#include <QEvent>
#include <QFontInfo>
#include <QHeaderView>
#include <QLayout>
#include <QPainter>
#include <QStyle>
#include <QTableView>
#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr double kMutedShare = 0.3; // of the background in secondary text: contrast stays above 4.5
constexpr double kSeparatorShare = 0.75; // of the background in lines
constexpr int kColumnCharacters = 84; // longer lines are hard to read
constexpr int kPageMargins = 2; // in margins of the style
constexpr int kSectionGap = 3; // in spacings of the style
// The least rows that a table shows; also the most rows of a table that is as high as its rows.
constexpr double kRowHeight = 1.5; // at least, in heights of the text
constexpr int kFewestRows = 2;
constexpr int kMostRows = 8;

struct TextLook {
    const char* name;
    double size; // in units of the user's font size
    bool isBold;
    bool isMuted;
    bool beginsGroup; // with some space above
};
constexpr std::array<TextLook, 6> kTextLooks = {{
    {"hero", 1.7, true, false, false},
    {"title", 1.3, true, false, false},
    {"section", 1.0, true, false, true},
    {"strong", 1.0, true, false, false},
    {"caption", 1.0, false, true, true},
    {"comment", 1.0, false, true, false},
}};

QColor mixed(const QColor& text, const QColor& ground, double share)
{
    const auto mix = [share](float a, float b) {
        return static_cast<float>(a * (1 - share) + b * share);
    };
    return QColor::fromRgbF(mix(text.redF(), ground.redF()), mix(text.greenF(), ground.greenF()),
                            mix(text.blueF(), ground.blueF()));
}

int styleMargin(const QWidget& widget)
{
    return widget.style()->pixelMetric(QStyle::PM_LayoutLeftMargin, nullptr, &widget);
}

int styleSpacing(const QWidget& widget)
{
    const int spacing =
        widget.style()->pixelMetric(QStyle::PM_LayoutVerticalSpacing, nullptr, &widget);
    // Some styles decide for each control, and return no number.
    return spacing >= 0 ? spacing : styleMargin(widget) / 2;
}

void dressText(QWidget& text, const TextLook& look)
{
    auto font = QApplication::font(&text);
    font.setPointSizeF(QFontInfo(font).pointSizeF() * look.size);
    font.setWeight(look.isBold ? QFont::DemiBold : QFont::Normal);
    text.setFont(font);
    text.setContentsMargins(0, look.beginsGroup ? styleSpacing(text) : 0, 0, 0);
    QPalette palette;
    if (look.isMuted)
        palette.setColor(QPalette::Active, QPalette::WindowText,
                         mutedColour(QApplication::palette()));
    if (look.isMuted)
        palette.setColor(QPalette::Inactive, QPalette::WindowText,
                         mutedColour(QApplication::palette()));
    text.setPalette(palette);
}

void dressColumn(QWidget& column)
{
    const int margin = styleMargin(column) * kPageMargins;
    column.layout()->setContentsMargins(margin, margin, margin, margin);
    const int spacing = styleSpacing(column);
    for (auto* group : column.findChildren<QLayout*>()) {
        if (!group->objectName().isEmpty()) // not those inside a control
            group->setSpacing(qobject_cast<QHBoxLayout*>(group) != nullptr ? styleMargin(column)
                                                                           : spacing);
    }
    column.layout()->setSpacing(spacing * kSectionGap);
    const auto letters = letterWidth(QFontMetrics(QApplication::font())) * kColumnCharacters;
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

void dressCard(QWidget& card)
{
    const int margin = styleMargin(card) * kPageMargins;
    card.layout()->setContentsMargins(margin, margin, margin, margin);
    card.layout()->setSpacing(margin);
}

// The style's rows have one height for every font.
int heightOfRows(const QWidget& frame, int rows)
{
    const auto* table = frame.findChild<QTableView*>();
    const int usual = table->style()->pixelMetric(QStyle::PM_HeaderDefaultSectionSizeVertical);
    table->verticalHeader()->setDefaultSectionSize(
        std::max(usual, qRound(table->fontMetrics().height() * kRowHeight)));
    return table->horizontalHeader()->sizeHint().height()
        + rows * table->verticalHeader()->defaultSectionSize();
}

// Controls that belong to a radio button are aligned with its text.
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
    else if (look == QLatin1String("card"))
        dressCard(widget);
    else if (look == QLatin1String("rows"))
        widget.setMinimumHeight(heightOfRows(widget, kFewestRows));
    else if (look == QLatin1String("few rows"))
        widget.setMaximumHeight(heightOfRows(widget, kMostRows));
    const auto* text = std::find_if(kTextLooks.begin(), kTextLooks.end(), [&](const auto& each) {
        return look == QLatin1String(each.name);
    });
    if (text != kTextLooks.end())
        dressText(widget, *text);
}

QPixmap inked(QPixmap sign, const QColor& ink)
{
    if (sign.isNull())
        return sign;
    QPainter painter(&sign);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(sign.rect(), ink);
    return sign;
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
                                     QEvent::ScreenChangeInternal, // another scale, perhaps
                                     QEvent::ThemeChange};
    return std::find(kChanges.begin(), kChanges.end(), event.type()) != kChanges.end();
}

QColor mutedColour(const QPalette& palette)
{
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window), kMutedShare);
}

QColor lineColour(const QPalette& palette)
{
    return mixed(palette.color(QPalette::WindowText), palette.color(QPalette::Window),
                 kSeparatorShare);
}

QIcon namedIcon(const QString& themeName, const QString& ownName)
{
    return QIcon::fromTheme(themeName, QIcon(QStringLiteral(":/icons/%1.svg").arg(ownName)));
}

QIcon signIcon(const QString& ownName, const QWidget& where, double size)
{
    const int edge =
        qRound(where.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &where) * size);
    const QIcon drawing(QStringLiteral(":/icons/%1.svg").arg(ownName));
    const auto sign = drawing.pixmap(QSize(edge, edge), where.devicePixelRatioF());
    QIcon icon;
    const auto palette = where.palette();
    icon.addPixmap(inked(sign, mutedColour(palette)), QIcon::Normal);
    icon.addPixmap(inked(sign, palette.color(QPalette::HighlightedText)), QIcon::Selected);
    return icon;
}

void showPicture(QLabel& label, const QIcon& icon, double size)
{
    const int edge =
        qRound(label.style()->pixelMetric(QStyle::PM_MessageBoxIconSize, nullptr, &label) * size);
    label.setVisible(!icon.isNull());
    label.setPixmap(icon.pixmap(QSize(edge, edge), label.devicePixelRatioF()));
}
