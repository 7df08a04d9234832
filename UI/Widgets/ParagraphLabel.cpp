// SPDX-License-Identifier: MIT
#include "UI/Widgets/ParagraphLabel.h"

#include "UI/Widgets/LetterWidth.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <cmath>

namespace {

const QString kBullet = QStringLiteral("• ");
constexpr double kLineHeight = 115; // percent
constexpr double kParagraphGap = 0.45; // of a line
constexpr int kUsualLetters = 60; // of a line, if its width is not set
constexpr int kFewestLetters = 20;

} // namespace

ParagraphLabel::ParagraphLabel(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

ParagraphLabel::~ParagraphLabel() = default;

std::unique_ptr<QTextDocument> ParagraphLabel::document(int width) const
{
    auto set = std::make_unique<QTextDocument>(text());
    set->setDocumentMargin(0);
    set->setDefaultFont(font());
    auto option = set->defaultTextOption();
    option.setTextDirection(layoutDirection());
    if (property("address").toBool()) {
        option.setTextDirection(Qt::LeftToRight);
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        option.setAlignment(layoutDirection() == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
    }
    set->setDefaultTextOption(option);
    const double indent = QFontMetricsF(font()).horizontalAdvance(kBullet);
    for (auto block = set->begin(); block.isValid(); block = block.next()) {
        QTextBlockFormat format;
        format.setLineHeight(kLineHeight, QTextBlockFormat::ProportionalHeight);
        if (block.next().isValid())
            format.setBottomMargin(fontMetrics().height() * kParagraphGap);
        if (block.text().startsWith(kBullet)) {
            if (layoutDirection() == Qt::RightToLeft)
                format.setRightMargin(indent);
            else
                format.setLeftMargin(indent);
            format.setTextIndent(-indent);
        }
        QTextCursor(block).setBlockFormat(format);
    }
    set->setTextWidth(width);
    return set;
}

QSize ParagraphLabel::sizeHint() const
{
    const int width = letterWidth(fontMetrics()) * kUsualLetters;
    return {width, heightForWidth(width)};
}

QSize ParagraphLabel::minimumSizeHint() const
{
    return {letterWidth(fontMetrics()) * kFewestLetters, fontMetrics().height()};
}

int ParagraphLabel::heightForWidth(int width) const
{
    return static_cast<int>(std::ceil(document(width)->size().height()));
}

void ParagraphLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    document(width())->documentLayout()->draw(&painter, context);
}

#include "moc_ParagraphLabel.cpp"
