#include "UI/MainWindowControllerText.h"

#include "UI/LetterWidth.h"

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
constexpr int kUsualLetters = 60; // of a line, where nobody says how wide it may be
constexpr int kFewestLetters = 20;

} // namespace

MainWindowControllerText::MainWindowControllerText(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setWordWrap(true);
}

MainWindowControllerText::~MainWindowControllerText() = default;

std::unique_ptr<QTextDocument> MainWindowControllerText::document(int width) const
{
    auto set = std::make_unique<QTextDocument>(text());
    set->setDocumentMargin(0);
    set->setDefaultFont(font());
    auto option = set->defaultTextOption();
    option.setTextDirection(layoutDirection());
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

QSize MainWindowControllerText::sizeHint() const
{
    const int width = letterWidth(fontMetrics()) * kUsualLetters;
    return {width, heightForWidth(width)};
}

QSize MainWindowControllerText::minimumSizeHint() const
{
    return {letterWidth(fontMetrics()) * kFewestLetters, fontMetrics().height()};
}

int MainWindowControllerText::heightForWidth(int width) const
{
    return static_cast<int>(std::ceil(document(width)->size().height()));
}

void MainWindowControllerText::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette.setColor(QPalette::Text, palette().color(foregroundRole()));
    document(width())->documentLayout()->draw(&painter, context);
}
