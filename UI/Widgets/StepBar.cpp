// SPDX-License-Identifier: MIT
#include "UI/Widgets/StepBar.h"

#include "UI/Widgets/Look.h"

#include <QPainter>
#include <QStyle>
#include <cassert>

namespace {

constexpr double kDiscShare = 1.45; // a disc's diameter in text heights
constexpr double kBarLineShare = 0.09; // of a disc's diameter
constexpr double kNumberShare = 0.85; // of the text's size

QFont stepFont(QFont font, bool isCurrent)
{
    font.setWeight(isCurrent ? QFont::DemiBold : QFont::Normal);
    return font;
}

} // namespace

StepBar::StepBar(QWidget* parent) : QLabel(parent)
{
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void StepBar::setSteps(const QStringList& names)
{
    m_names = names;
    describe();
    updateGeometry();
}

void StepBar::setCurrentStep(int step)
{
    assert(step >= 0);
    m_current = step;
    describe();
}

void StepBar::describe()
{
    if (m_current >= 0 && m_current < m_names.size()) {
        setText(QStringLiteral("%1. %2").arg(m_current + 1).arg(m_names[m_current]));
        setAccessibleDescription(QStringLiteral("%1/%2").arg(m_current + 1).arg(m_names.size()));
    }
    update();
}

int StepBar::disc() const
{
    return qRound(fontMetrics().height() * kDiscShare);
}

int StepBar::gap() const
{
    return disc() / 2;
}

int StepBar::stepWidth(int step, bool isNamed) const
{
    if (!isNamed)
        return disc();
    assert(step >= 0 && step < m_names.size());
    const QFontMetrics metrics(stepFont(font(), step == m_current));
    return disc() + gap() / 2 + metrics.horizontalAdvance(m_names[step]);
}

int StepBar::wholeWidth(bool areAllNamed) const
{
    const int count = static_cast<int>(m_names.size());
    int width = 2 * gap() * std::max(count - 1, 0);
    for (int step = 0; step < count; ++step)
        width += stepWidth(step, areAllNamed || step == m_current);
    return width;
}

QSize StepBar::sizeHint() const
{
    const auto margins = contentsMargins();
    return QSize(wholeWidth(true), disc())
        + QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
}

QSize StepBar::minimumSizeHint() const
{
    const int discs = static_cast<int>(m_names.size()) * (disc() + gap());
    return {std::min(discs, sizeHint().width()), sizeHint().height()};
}

QRect StepBar::visual(const QRect& place) const
{
    return QStyle::visualRect(layoutDirection(), contentsRect(), place);
}

void StepBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto room = contentsRect();
    const bool areAllNamed = wholeWidth(true) <= room.width();
    int left = room.left() + std::max(0, (room.width() - wholeWidth(areAllNamed)) / 2);
    for (int step = 0; step < m_names.size(); ++step) {
        const bool isNamed = areAllNamed || step == m_current;
        paintStep(painter, step, left, isNamed);
        left += stepWidth(step, isNamed);
        const QRect line(left + gap() / 2, room.center().y(), gap(), 1);
        if (step + 1 < m_names.size())
            painter.fillRect(visual(line), lineColour(palette()));
        left += 2 * gap();
    }
}

void StepBar::paintStep(QPainter& painter, int step, int left, bool isNamed) const
{
    const auto room = contentsRect();
    const int top = room.top() + (room.height() - disc()) / 2;
    paintDisc(painter, step, visual({left, top, disc(), disc()}));
    if (!isNamed)
        return;
    const int offset = disc() + gap() / 2;
    const QRect text(left + offset, room.top(), stepWidth(step, true) - offset, room.height());
    painter.setFont(stepFont(font(), step == m_current));
    painter.setPen(step == m_current ? palette().color(QPalette::WindowText)
                                     : mutedColour(palette()));
    painter.drawText(visual(text), Qt::AlignVCenter | Qt::AlignLeading, m_names[step]);
}

void StepBar::paintDisc(QPainter& painter, int step, const QRect& place) const
{
    const double line = disc() * kBarLineShare;
    const auto ring = QRectF(place).adjusted(line, line, -line, -line);
    const bool isCurrent = step == m_current;
    const auto accent = palette().color(QPalette::Highlight);
    painter.setPen(QPen(step > m_current ? lineColour(palette()) : accent, line));
    painter.setBrush(isCurrent ? QBrush(accent) : QBrush(Qt::NoBrush));
    painter.drawEllipse(ring);
    painter.setBrush(Qt::NoBrush);
    if (step < m_current) {
        const auto width = ring.width();
        painter.setPen(QPen(accent, line * 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.drawPolyline(QPolygonF({ring.topLeft() + QPointF(width * 0.28, width * 0.52),
                                        ring.topLeft() + QPointF(width * 0.44, width * 0.68),
                                        ring.topLeft() + QPointF(width * 0.73, width * 0.35)}));
        return;
    }
    auto number = stepFont(font(), isCurrent);
    number.setPointSizeF(QFontInfo(font()).pointSizeF() * kNumberShare);
    painter.setFont(number);
    painter.setPen(isCurrent ? palette().color(QPalette::HighlightedText) : mutedColour(palette()));
    painter.drawText(place, Qt::AlignCenter, QString::number(step + 1));
}

#include "moc_StepBar.cpp"
